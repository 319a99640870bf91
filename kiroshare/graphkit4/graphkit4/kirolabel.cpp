#include "kirolabel.h"

#include "labelfile.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLocale>

#include <cmath>
#include <limits>

namespace
{

struct TypeTexts
{
    KiroLabel::Type type;
    const char* text;
    const char* name;
};

constexpr TypeTexts Types[KiroLabel::TypeCount] = {
    {KiroLabel::Point, "point", QT_TRANSLATE_NOOP("KiroLabel", "Point")},
    {KiroLabel::SignalLine, "signal line", QT_TRANSLATE_NOOP("KiroLabel", "Signal line")},
    {KiroLabel::TimeLine, "time line", QT_TRANSLATE_NOOP("KiroLabel", "Time line")},
    {KiroLabel::SignalPeriod, "signal period", QT_TRANSLATE_NOOP("KiroLabel", "Signal period")},
    {KiroLabel::TimePeriod, "time period", QT_TRANSLATE_NOOP("KiroLabel", "Time period")},
};

const TypeTexts* textsOf(KiroLabel::Type type)
{
    for (const TypeTexts& each : Types) {
        if (each.type == type)
            return &each;
    }
    return nullptr;
}

} // namespace

void KiroLabel::setup(Type labelType, quint32 from, quint32 to, const QString& labelName,
                      const QString& labelDescription, const QColor& labelColor)
{
    type = labelType;
    time = from;
    endTime = to;
    signal = 0;
    value = 0.0;
    color = labelColor;
    m_name = labelName;
    m_description = labelDescription;
}

void KiroLabel::setupPoint(uint signalIndex, uint timeMsec, double rawValue, const QString& labelName,
                           const QString& labelDescription, const QColor& labelColor)
{
    setup(Point, timeMsec, timeMsec, labelName, labelDescription, labelColor);
    signal = signalIndex;
    value = rawValue;
}

void KiroLabel::setupSignalLine(uint signalIndex, uint timeMsec, const QString& labelName,
                                const QString& labelDescription, const QColor& labelColor)
{
    setup(SignalLine, timeMsec, timeMsec, labelName, labelDescription, labelColor);
    signal = signalIndex;
}

void KiroLabel::setupTimeLine(uint timeMsec, const QString& labelName, const QString& labelDescription,
                              const QColor& labelColor)
{
    setup(TimeLine, timeMsec, timeMsec, labelName, labelDescription, labelColor);
}

void KiroLabel::setupSignalPeriod(uint signalIndex, uint fromMsec, uint toMsec, const QString& labelName,
                                  const QString& labelDescription, const QColor& labelColor)
{
    setup(SignalPeriod, fromMsec, toMsec, labelName, labelDescription, labelColor);
    signal = signalIndex;
}

void KiroLabel::setupTimePeriod(uint fromMsec, uint toMsec, const QString& labelName,
                                const QString& labelDescription, const QColor& labelColor)
{
    setup(TimePeriod, fromMsec, toMsec, labelName, labelDescription, labelColor);
}

QString KiroLabel::positionText() const
{
    // Plain digits where a person would write them so.
    const double size = std::abs(value);
    const bool plain = size == 0.0 || (size >= 1e-6 && size < 1e15);
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(value, plain ? 'f' : 'g', QLocale::FloatingPointShortest);
}

int KiroLabel::signalSignedInt() const
{
    return hasSignal() && signal <= quint32(std::numeric_limits<int>::max()) ? int(signal) : -1;
}

QString KiroLabel::typeToName(Type type)
{
    const TypeTexts* texts = textsOf(type);
    return texts ? QCoreApplication::translate("KiroLabel", texts->name) : QString();
}

QString KiroLabel::typeToString(Type type)
{
    const TypeTexts* texts = textsOf(type);
    return texts ? QString::fromLatin1(texts->text) : QString();
}

KiroLabel::Type KiroLabel::nameToType(const QString& name)
{
    for (const TypeTexts& each : Types) {
        if (name == typeToName(each.type) || name == QLatin1String(each.text))
            return each.type;
    }
    return Point;
}

KiroLabel::Type KiroLabel::indexToType(uint index)
{
    return index < TypeCount ? Types[index].type : Point;
}

QList<KiroLabel> KiroLabel::load(const QString& path)
{
    QList<KiroLabel> labels;
    QString reason;
    if (!readLabelFile(path, labels, reason))
        qWarning().noquote() << QStringLiteral("Label file \"%1\" could not be read: %2").arg(path, reason);
    return labels;
}

bool KiroLabel::save(const QString& path, const QList<KiroLabel>& labels)
{
    QString reason;
    const bool saved = writeLabelFile(path, labels, reason);
    if (!saved)
        qWarning().noquote() << QStringLiteral("Label file \"%1\" could not be saved: %2").arg(path, reason);
    return saved;
}
