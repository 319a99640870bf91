#pragma once

#include <cstddef>
#include <functional>

/// The version text of the programs, such as "3.12".
const char* kiroVersionText();

/// Asks the system to back fresh memory that is about to be filled by large pages: touching a hundred
/// megabytes for the first time then costs half. Only a hint, without effect on what the memory holds.
void adviseLargePages(void* memory, std::size_t bytes);

/// Date and time of day on the local clock, each part kept within its range by its setter.
///
/// A day that a shorter month cannot hold becomes that month's last day.
class KiroDateTime
{
public:
    /// 1 January 1601, midnight.
    KiroDateTime() = default;
    /// The machine's local clock.
    static KiroDateTime now();

    int year() const { return m_year; }
    int month() const { return m_month; }
    int day() const { return m_day; }
    int hour() const { return m_hour; }
    int minute() const { return m_minute; }
    int second() const { return m_second; }
    int millisecond() const { return m_millisecond; }

    void setYear(int year);               ///< 1601 to 30827
    void setMonth(int month);             ///< 1 to 12
    void setDay(int day);                 ///< 1 to the month's length in that year
    void setHour(int hour);               ///< 0 to 23
    void setMinute(int minute);           ///< 0 to 59
    void setSecond(int second);           ///< 0 to 59
    void setMillisecond(int millisecond); ///< 0 to 999

private:
    int m_year = 1601;
    int m_month = 1;
    int m_day = 1;
    int m_hour = 0;
    int m_minute = 0;
    int m_second = 0;
    int m_millisecond = 0;
};

/// The end of the process after a programming fault or an unreadable sample.
class KiroError
{
public:
    using Presenter = std::function<void(const char* message)>;

    /// Title of the box in which a window program shows the message.
    static constexpr const char* BoxTitle = "Critical application error";

    /// What shows the message to the user: a box in the window program, standard error in a tool.
    /// Installed once by the program at its start; without one nothing is shown. A presenter may throw
    /// (a test does, to look at the message and go on).
    static void setPresenter(Presenter presenter);

    /// Hands `message` to the presenter, then raises it as a fatal message of Qt, which ends the
    /// process by the message handler that the program installed, else by abort().
    [[noreturn]] static void fatalError(const char* message);
};
