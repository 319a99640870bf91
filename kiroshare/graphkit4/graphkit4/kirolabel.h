#pragma once

#include <QColor>
#include <QList>
#include <QString>

/// A label on a recording: a point, a line or a period. A plain value, copied freely.
///
/// Which fields count depends on the type:
///
/// | Type         | signal | value | endTime |
/// |--------------|--------|-------|---------|
/// | Point        | yes    | yes   |         |
/// | SignalLine   | yes    |       |         |
/// | TimeLine     |        |       |         |
/// | SignalPeriod | yes    |       | yes     |
/// | TimePeriod   |        |       | yes     |
///
/// Fields that don't count are kept all the same, so that changing the type back and forth loses nothing.
/// Dialogs change the fields one by one; name and description stand behind readers of these names.
class KiroLabel
{
public:
    enum Type { Point = 1, SignalLine = 2, TimeLine = 3, SignalPeriod = 4, TimePeriod = 5 };
    /// How many types there are; indexToType() counts below it.
    static constexpr uint TypeCount = 5;

    Type type = Point;
    quint32 time = 0;    ///< start, milliseconds from the start of the recording
    QColor color;        ///< drawing colour; a new label has none (invalid)
    double value = 0.0;  ///< raw units of the signal
    quint32 signal = 0;  ///< index in the recording, from 0
    quint32 endTime = 0; ///< end, milliseconds from the start of the recording

    /// Short text.
    const QString& name() const { return m_name; }
    void setName(const QString& text) { m_name = text; }
    /// Long text, of several lines where the user likes.
    const QString& description() const { return m_description; }
    void setDescription(const QString& text) { m_description = text; }

    /// Each of these sets every field: signal and value to 0 where the type has none, the end of a point or
    /// line to its time. Periods are stored as given, reversed ones too.
    void setupPoint(uint signalIndex, uint timeMsec, double rawValue, const QString& labelName,
                    const QString& labelDescription, const QColor& labelColor);
    void setupSignalLine(uint signalIndex, uint timeMsec, const QString& labelName,
                         const QString& labelDescription, const QColor& labelColor);
    void setupTimeLine(uint timeMsec, const QString& labelName, const QString& labelDescription,
                       const QColor& labelColor);
    void setupSignalPeriod(uint signalIndex, uint fromMsec, uint toMsec, const QString& labelName,
                           const QString& labelDescription, const QColor& labelColor);
    void setupTimePeriod(uint fromMsec, uint toMsec, const QString& labelName,
                         const QString& labelDescription, const QColor& labelColor);

    bool hasValue() const { return type == Point; }
    bool hasSignal() const { return type != TimeLine && type != TimePeriod; }
    bool hasEnd() const { return type == SignalPeriod || type == TimePeriod; }

    /// `endTime` less `time`, milliseconds, whatever the type; negative when the end comes first.
    qint64 durationTime() const { return qint64(endTime) - qint64(time); }
    /// The same in seconds.
    double durationTimeSec() const { return double(durationTime()) / 1000.0; }
    /// `value` in the default locale, with as many digits as QLocale::toDouble() needs to give the same
    /// number back (0 for a negative zero), and without group separators.
    QString positionText() const;
    /// `signal`, or -1 for a label without one and for an index that is no int.
    int signalSignedInt() const;

    /// What a type is called, in the language of the user. Empty for a value that is none of the five.
    static QString typeToName(Type type);
    /// What exports and label files call it, in every language: "point", "signal line", "time line",
    /// "signal period", "time period". Empty for a value that is none of the five.
    static QString typeToString(Type type);
    /// The type with this typeToName() or typeToString(); Point for any other text.
    static Type nameToType(const QString& name);
    /// The types in the order that dialogs offer them, `index` from 0; Point from TypeCount on.
    static Type indexToType(uint index);

    /// The labels of a `.lab` file in their order. Empty if the file holds none, cannot be read or has a
    /// broken line; the log then tells the file, the line and the reason. See docs/formats/labels.md.
    static QList<KiroLabel> load(const QString& path);
    /// Replaces a `.lab` file whole or not at all. False if it could not; the log then tells the reason, and
    /// an older file stands.
    static bool save(const QString& path, const QList<KiroLabel>& labels);

private:
    void setup(Type labelType, quint32 from, quint32 to, const QString& labelName,
               const QString& labelDescription, const QColor& labelColor);

    QString m_name;
    QString m_description;
};
Q_DECLARE_TYPEINFO(KiroLabel, Q_MOVABLE_TYPE);
