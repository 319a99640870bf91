#include "labelstore.h"

#include <algorithm>
#include <cmath>

namespace
{

constexpr double MsOfSecond = 1000.0;
/// For the rounding of times; labels stand at whole milliseconds.
constexpr double Almost = 1e-9;

/// Distance in seconds; `tolerance` within a period away from its ends.
double distance(const KiroLabel& label, double seconds, double tolerance)
{
    const double from = label.time / MsOfSecond;
    const double fromStart = std::abs(seconds - from);
    if (!label.hasEnd())
        return fromStart;
    const double to = label.endTime / MsOfSecond;
    const double nearest = std::min(fromStart, std::abs(seconds - to));
    const bool isWithin = seconds >= std::min(from, to) && seconds <= std::max(from, to);
    return isWithin ? std::min(nearest, tolerance) : nearest;
}

} // namespace

unsigned LabelStore::add(const KiroLabel& label)
{
    m_entries.append({++m_lastId, label});
    return m_lastId;
}

KiroLabel LabelStore::label(unsigned id) const
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.id == id; });
    return found == m_entries.end() ? KiroLabel() : found->label;
}

bool LabelStore::remove(unsigned id)
{
    const auto found =
        std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.id == id; });
    if (found == m_entries.end())
        return false;
    m_entries.erase(found);
    return true;
}

QList<KiroLabel> LabelStore::list() const
{
    QList<KiroLabel> labels;
    labels.reserve(m_entries.size());
    for (const Entry& entry : m_entries)
        labels.append(entry.label);
    return labels;
}

unsigned LabelStore::findByTime(unsigned plot, double seconds, double tolerance) const
{
    unsigned found = 0;
    double nearest = 0.0;
    for (const Entry& entry : m_entries) {
        if (entry.label.hasSignal() && entry.label.signal != plot)
            continue;
        const double away = distance(entry.label, seconds, tolerance);
        if (away <= tolerance + Almost && (found == 0 || away < nearest)) {
            found = entry.id;
            nearest = away;
        }
    }
    return found;
}
