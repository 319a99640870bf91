#include "saccadeselection.h"

#include "appconfig.h"
#include "inistore.h"
#include "selectsignal.h"
#include "settingsedit.h"
#include "windowgeometry.h"

#include <QCoreApplication>
#include <QLocale>

#include <algorithm>

namespace
{

const QString Section = QStringLiteral("SELECT_SACCADES_DIALOG");

QString translated(const char* text)
{
    return QCoreApplication::translate("SaccadeSelection", text);
}

/// Of the column "Begin".
QString beginUnit(TimeUnit unit)
{
    switch (unit) {
    case TimeUnit::Samples:
        return translated(QT_TRANSLATE_NOOP("SaccadeSelection", " [sample]"));
    case TimeUnit::Seconds:
        return translated(QT_TRANSLATE_NOOP("SaccadeSelection", " [s]"));
    case TimeUnit::Minutes:
        return translated(QT_TRANSLATE_NOOP("SaccadeSelection", " [min]"));
    case TimeUnit::Hours:
        break;
    }
    return translated(QT_TRANSLATE_NOOP("SaccadeSelection", " [hour]"));
}

QString lengthUnit(TimeUnit unit)
{
    return unit == TimeUnit::Samples ? beginUnit(unit)
                                     : translated(QT_TRANSLATE_NOOP("SaccadeSelection", " [ms]"));
}

} // namespace

QStringList saccadeColumns(TimeUnit unit)
{
    return {translated(QT_TRANSLATE_NOOP("SaccadeSelection", "No")),
            translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Begin")) + beginUnit(unit),
            translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Duration")) + lengthUnit(unit),
            translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Fixation")) + lengthUnit(unit),
            translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Amplitude [deg]")),
            translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Peak velocity [deg/s]"))};
}

QString saccadeRow(int number, const KiroSaccadeEye& eye, double frequency, TimeUnit unit)
{
    QLocale locale = QLocale::system();
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return QStringLiteral("%1\t%2\t%3\t%4\t%5\t%6")
        .arg(locale.toString(number), timeString(eye.start, frequency, unit, false),
             timeString(eye.duration, frequency, unit, true), timeString(eye.fixation, frequency, unit, true),
             locale.toString(eye.amplitude, 'f', 1), locale.toString(eye.peakVelocity, 'f', 1));
}

QList<int> selectSaccades(QWidget* parent, const QList<KiroSaccade>& saccades, double frequency,
                          TimeUnit unit)
{
    SelectSignal dialog(parent);
    dialog.setWindowTitle(translated(QT_TRANSLATE_NOOP("SaccadeSelection", "Select saccades")));
    dialog.setSelectionMode(2);
    // Clock times are no numbers.
    const bool beginIsText = unit == TimeUnit::Minutes || unit == TimeUnit::Hours;
    dialog.setColumns(saccadeColumns(unit), {false, beginIsText, false, false, false, false});
    for (int i = 0; i < saccades.size(); ++i)
        dialog.addItem(saccadeRow(i + 1, saccades[i].main, frequency, unit));
    constexpr int WidthInLetters = 116;
    constexpr int HeightInLines = 28;
    const QFontMetrics metrics = dialog.fontMetrics();
    dialog.resize(WidthInLetters * metrics.averageCharWidth(), HeightInLines * metrics.height());
    IniStore store;
    store.load(appConfig().configFile());
    WindowGeometry::read(store, Section, dialog).place(dialog);
    const bool accepted = dialog.exec() == QDialog::Accepted;
    editSection(appConfig().configFile(), Section,
                [&](IniStore& edited) { WindowGeometry::write(edited, Section, dialog); });
    if (!accepted)
        return {};
    QList<int> chosen = dialog.selectedSignals();
    std::sort(chosen.begin(), chosen.end());
    return chosen;
}
