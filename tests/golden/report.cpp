#include "report.h"

#include <algorithm>
#include <exception>
#include <ostream>

namespace
{

constexpr std::size_t MostLines = 5; // printed for one unit

} // namespace

Report::Report(std::ostream& out, bool listSkipped)
    : m_out(out)
    , m_listSkipped(listSkipped)
{
}

void Report::beginCase(const QString& name, bool advisory)
{
    m_case = name;
    m_advisory = advisory;
}

void Report::check(const QString& unit, const std::function<Verdict()>& run)
{
    Verdict verdict;
    try {
        verdict = run();
    } catch (const std::exception& error) {
        verdict = {{QString(), QStringLiteral("an answer"), QString::fromLocal8Bit(error.what())}};
    }
    count(unit, verdict);
}

void Report::fail(const QString& unit, const QString& wanted, const QString& found)
{
    count(unit, {{QString(), wanted, found}});
}

void Report::skip(const QString& unit)
{
    ++m_skipped;
    if (m_listSkipped)
        print(QStringLiteral("skipped %1: %2").arg(m_case, unit));
}

QString Report::summary() const
{
    return QStringLiteral("%1 passed, %2 failed, %3 skipped").arg(m_passed).arg(m_failed).arg(m_skipped);
}

void Report::count(const QString& unit, const Verdict& verdict)
{
    if (verdict.empty()) {
        ++m_passed;
        return;
    }
    ++(m_advisory ? m_skipped : m_failed);
    const QString caseName = m_advisory ? QStringLiteral("advisory ") + m_case : m_case;
    const std::size_t lines = std::min(verdict.size(), MostLines);
    for (std::size_t i = 0; i < lines; ++i) {
        const Mismatch& mismatch = verdict[i];
        print(QStringLiteral("%1: %2%3: wanted %4, found %5")
                  .arg(caseName, unit, mismatch.place, mismatch.wanted, mismatch.found));
    }
    if (verdict.size() > lines)
        print(QStringLiteral("%1: %2: %3 more differences").arg(caseName, unit).arg(verdict.size() - lines));
}

void Report::print(const QString& line)
{
    m_out << line.toStdString() << '\n';
}
