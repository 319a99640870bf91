#include "roads.h"

#include <algorithm>
#include <exception>

namespace
{

bool sameMismatch(const Mismatch& a, const Mismatch& b)
{
    return a.place == b.place && a.wanted == b.wanted && a.found == b.found;
}

bool sameVerdict(const Verdict& a, const Verdict& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameMismatch);
}

Verdict runRoad(const Road& road)
{
    try {
        return road.run();
    } catch (const std::exception& error) {
        return {{QString(), QStringLiteral("an answer"), QString::fromLocal8Bit(error.what())}};
    }
}

} // namespace

Verdict checkRoads(const std::vector<Road>& roads)
{
    std::vector<Verdict> verdicts;
    for (const Road& road : roads)
        verdicts.push_back(runRoad(road));
    const auto likeTheFirst = [&verdicts](const Verdict& verdict) {
        return sameVerdict(verdict, verdicts.front());
    };
    if (std::all_of(verdicts.begin(), verdicts.end(), likeTheFirst))
        return verdicts.empty() ? Verdict() : verdicts.front();
    Verdict all;
    for (std::size_t i = 0; i < roads.size(); ++i) {
        for (Mismatch& mismatch : verdicts[i])
            mismatch.found += QStringLiteral(" by ") + QLatin1String(roads[i].name);
        append(all, verdicts[i]);
    }
    return all;
}
