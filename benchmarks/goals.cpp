#include "goals.h"

#include <cstdio>
#include <utility>
#include <vector>

namespace
{

std::vector<Goal>& goals()
{
    static std::vector<Goal> all;
    return all;
}

double timeOf(const std::map<std::string, double>& times, const std::string& name)
{
    const auto found = times.find(name);
    return found == times.end() ? 0.0 : found->second;
}

} // namespace

bool registerGoal(Goal goal)
{
    goals().push_back(std::move(goal));
    return true;
}

bool reportGoals(const std::map<std::string, double>& times, std::ostream& out)
{
    bool all = true;
    for (const Goal& goal : goals()) {
        const double numerator = timeOf(times, goal.numerator);
        const double denominator = timeOf(times, goal.denominator);
        const bool measured = numerator > 0.0 && denominator > 0.0;
        const double ratio = measured ? numerator / denominator : 0.0;
        const bool holds =
            measured && (goal.kind == Goal::Kind::AtMost ? ratio <= goal.limit : ratio >= goal.limit);
        char line[200];
        if (goal.kind == Goal::Kind::Shown) {
            std::snprintf(line, sizeof(line), "ratio %s measured %.2f", goal.name.c_str(), ratio);
            out << line << '\n';
            continue;
        }
        std::snprintf(line, sizeof(line), "goal %s measured %.2f limit %.2f %s", goal.name.c_str(), ratio,
                      goal.limit, holds ? "ok" : "short");
        out << line << '\n';
        all = all && holds;
    }
    return all;
}
