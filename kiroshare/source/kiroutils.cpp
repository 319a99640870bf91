#include "kiroutils.h"

#include <QDate>
#include <QDateTime>
#include <QMessageLogger>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

namespace
{

int monthLength(int year, int month)
{
    constexpr int Lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return month == 2 && QDate::isLeapYear(year) ? 29 : Lengths[month - 1];
}

KiroError::Presenter& presenter()
{
    static KiroError::Presenter installed;
    return installed;
}

} // namespace

const char* kiroVersionText()
{
    return KIRO_VERSION_TEXT;
}

void adviseLargePages(void* memory, std::size_t bytes)
{
    // Only whole pages within the memory are the caller's to advise on.
    const auto page = static_cast<std::uintptr_t>(::sysconf(_SC_PAGESIZE));
    const auto begin = reinterpret_cast<std::uintptr_t>(memory);
    const std::uintptr_t first = (begin + page - 1) / page * page;
    const std::uintptr_t end = (begin + bytes) / page * page;
    if (end > first)
        ::madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
}

KiroDateTime KiroDateTime::now()
{
    const QDateTime clock = QDateTime::currentDateTime();
    KiroDateTime result;
    result.setYear(clock.date().year());
    result.setMonth(clock.date().month());
    result.setDay(clock.date().day());
    result.setHour(clock.time().hour());
    result.setMinute(clock.time().minute());
    result.setSecond(clock.time().second());
    result.setMillisecond(clock.time().msec());
    return result;
}

void KiroDateTime::setYear(int year)
{
    m_year = std::clamp(year, 1601, 30827);
    setDay(m_day);
}

void KiroDateTime::setMonth(int month)
{
    m_month = std::clamp(month, 1, 12);
    setDay(m_day);
}

void KiroDateTime::setDay(int day)
{
    m_day = std::clamp(day, 1, monthLength(m_year, m_month));
}

void KiroDateTime::setHour(int hour)
{
    m_hour = std::clamp(hour, 0, 23);
}

void KiroDateTime::setMinute(int minute)
{
    m_minute = std::clamp(minute, 0, 59);
}

void KiroDateTime::setSecond(int second)
{
    m_second = std::clamp(second, 0, 59);
}

void KiroDateTime::setMillisecond(int millisecond)
{
    m_millisecond = std::clamp(millisecond, 0, 999);
}

void KiroError::setPresenter(Presenter newPresenter)
{
    presenter() = std::move(newPresenter);
}

void KiroError::fatalError(const char* message)
{
    if (presenter())
        presenter()(message);
    QMessageLogger(QT_MESSAGELOG_FILE, QT_MESSAGELOG_LINE, QT_MESSAGELOG_FUNC).fatal("%s", message);
    std::abort();
}
