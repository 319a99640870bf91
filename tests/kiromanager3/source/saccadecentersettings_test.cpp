#include "saccadecentersettings.h"

#include "detectionline.h"
#include "inistore.h"

#include <QRegularExpression>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <utility>

namespace
{

/// New settings with fonts of a name, which the font of an application has and that of a test without one
/// not.
SaccadeCenterSettings start()
{
    SaccadeCenterSettings settings;
    settings.plot.font = settings.print.font = QFont(QStringLiteral("Sans"), 10);
    return settings;
}

/// Keys and values of these, in order.
QStringList startLines(const QString& font = start().plot.font.toString())
{
    return {QStringLiteral("dir_open="), QStringLiteral("ask_for_signals_selection_confirmation=1"),
            QStringLiteral("time_units=1"), QStringLiteral("plot_font=") + font,
            QStringLiteral("plot_bkg=255,255,255"), QStringLiteral("plot_frg=0,0,0"),
            QStringLiteral("plot_grid=192,192,192"), QStringLiteral("plot_eye_signal=0,0,0,1,1"),
            QStringLiteral("plot_sacc_left=255,0,0,2,1"), QStringLiteral("plot_sacc_right=0,255,0,2,1"),
            QStringLiteral("plot_sacc_sel=0,0,255,4,1"), QStringLiteral("plot_blinks=255,0,255,2,2"),
            QStringLiteral("use_custom_print_scheme=1"), QStringLiteral("print_font=") + font,
            QStringLiteral("print_bkg=255,255,255"), QStringLiteral("print_frg=0,0,0"),
            QStringLiteral("print_grid=192,192,192"), QStringLiteral("print_eye_signal=0,0,0,1,1"),
            QStringLiteral("print_sacc_left=255,0,0,2,1"), QStringLiteral("print_sacc_right=0,255,0,2,1"),
            QStringLiteral("print_sacc_sel=0,0,255,4,1"), QStringLiteral("print_blinks=255,0,255,2,2"),
            QStringLiteral("export_include_title=1"), QStringLiteral("export_include_file=1"),
            QStringLiteral("export_include_freq=1"), QStringLiteral("export_include_fields=1"),
            QStringLiteral("export_separator=\t"), QStringLiteral("export_labels_on_signal=1"),
            QStringLiteral("export_labels_color=0,255,0"),
            QStringLiteral("export_blink_labels_color=0,255,255"), QStringLiteral("export_kiro_window=3000"),
            QStringLiteral("export_kiro_update=300"), QStringLiteral("export_samples_arbitrary_units=0"),
            QStringLiteral("export_samples_calib_factor=1"), QStringLiteral("export_samples_calib_unit=1"),
            QStringLiteral("export_samples_frequency=1"), QStringLiteral("export_samples_index=1"),
            QStringLiteral("export_samples_direction=1"), QStringLiteral("export_samples_offset=1"),
            QStringLiteral("export_samples_invert=1"),
            QStringLiteral("sacc_det_params=") + saccadeLine(SaccadeDetectionParams::atStart()),
            QStringLiteral("blink_det_params=") + blinkLine(BlinkDetectionParams::atStart()),
            QStringLiteral("screenshot_size=1600,1200"), QStringLiteral("screenshot_format=PNG"),
            // There is no screen here to stand in the middle of.
            QStringLiteral("stat_dialog_pos=0,0"), QStringLiteral("stat_dialog_size=640,480"),
            QStringLiteral("time_window=3000.0000000000")};
}

/// The same keys with a value each that is not the one of new settings.
QStringList otherLines()
{
    QFont screenFont(QStringLiteral("Serif"), 14, QFont::Bold);
    QFont paperFont(QStringLiteral("Mono"), 7, QFont::Normal, true);
    SaccadeDetectionParams saccades = SaccadeDetectionParams::atStart();
    saccades.maxAmp = 450.25;
    BlinkDetectionParams blinks = BlinkDetectionParams::atStart();
    blinks.minVel = 21.5;
    return {QStringLiteral("dir_open=/data/eyes = mine"),
            QStringLiteral("ask_for_signals_selection_confirmation=0"),
            QStringLiteral("time_units=3"),
            QStringLiteral("plot_font=") + screenFont.toString(),
            QStringLiteral("plot_bkg=1,2,3"),
            QStringLiteral("plot_frg=4,5,6"),
            QStringLiteral("plot_grid=7,8,9"),
            QStringLiteral("plot_eye_signal=10,11,12,3,3"),
            QStringLiteral("plot_sacc_left=13,14,15,4,4"),
            QStringLiteral("plot_sacc_right=16,17,18,5,5"),
            QStringLiteral("plot_sacc_sel=19,20,21,0,0"),
            QStringLiteral("plot_blinks=22,23,24,99,1"),
            QStringLiteral("use_custom_print_scheme=0"),
            QStringLiteral("print_font=") + paperFont.toString(),
            QStringLiteral("print_bkg=101,2,3"),
            QStringLiteral("print_frg=104,5,6"),
            QStringLiteral("print_grid=107,8,9"),
            QStringLiteral("print_eye_signal=110,11,12,3,3"),
            QStringLiteral("print_sacc_left=113,14,15,4,4"),
            QStringLiteral("print_sacc_right=116,17,18,5,5"),
            QStringLiteral("print_sacc_sel=119,20,21,0,0"),
            QStringLiteral("print_blinks=122,23,24,99,1"),
            QStringLiteral("export_include_title=0"),
            QStringLiteral("export_include_file=0"),
            QStringLiteral("export_include_freq=0"),
            QStringLiteral("export_include_fields=0"),
            QStringLiteral("export_separator= ; "),
            QStringLiteral("export_labels_on_signal=0"),
            QStringLiteral("export_labels_color=31,32,33"),
            QStringLiteral("export_blink_labels_color=34,35,36"),
            QStringLiteral("export_kiro_window=3600000"),
            QStringLiteral("export_kiro_update=1"),
            QStringLiteral("export_samples_arbitrary_units=1"),
            QStringLiteral("export_samples_calib_factor=0"),
            QStringLiteral("export_samples_calib_unit=0"),
            QStringLiteral("export_samples_frequency=0"),
            QStringLiteral("export_samples_index=0"),
            QStringLiteral("export_samples_direction=0"),
            QStringLiteral("export_samples_offset=0"),
            QStringLiteral("export_samples_invert=0"),
            QStringLiteral("sacc_det_params=") + saccadeLine(saccades),
            QStringLiteral("blink_det_params=") + blinkLine(blinks),
            QStringLiteral("screenshot_size=64,8192"),
            QStringLiteral("screenshot_format=XPM"),
            QStringLiteral("stat_dialog_pos=-1280,40"),
            QStringLiteral("stat_dialog_size=700,500"),
            QStringLiteral("time_window=2750.0000000000")};
}

IniStore storeOf(const QStringList& lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SACCADE_CENTER]\n") + lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    return store;
}

SaccadeCenterSettings loaded(const QStringList& lines)
{
    SaccadeCenterSettings settings = start();
    settings.load(storeOf(lines));
    return settings;
}

/// The lines that the settings write.
std::string written(const SaccadeCenterSettings& settings)
{
    IniStore store;
    store.setSection(SaccadeCenterSettings::section());
    settings.save(store);
    return store.toString().toStdString();
}

std::string sectionOf(const QStringList& lines)
{
    return storeOf(lines).toString().toStdString();
}

QPen storedPen(const QColor& color, int width, Qt::PenStyle style)
{
    return QPen(QBrush(color), width, style, Qt::SquareCap, Qt::BevelJoin);
}

} // namespace

TEST(SaccadeCenterSettingsTest, StartValuesUnderTheirKeys)
{
    EXPECT_EQ(written(SaccadeCenterSettings()), sectionOf(startLines(QFont().toString())));
}

TEST(SaccadeCenterSettingsTest, StartValuesOfTheMembers)
{
    const SaccadeCenterSettings settings;
    EXPECT_EQ(settings.openFolder, QString());
    EXPECT_EQ(settings.timeUnits, TimeUnit::Seconds);
    EXPECT_TRUE(settings.askForSignals);
    EXPECT_TRUE(settings.ownPrintLook);
    EXPECT_EQ(settings.plot.eyeSignal, storedPen(Qt::black, 1, Qt::SolidLine));
    EXPECT_EQ(settings.plot.saccadeLeft, storedPen(Qt::red, 2, Qt::SolidLine));
    EXPECT_EQ(settings.plot.saccadeRight, storedPen(Qt::green, 2, Qt::SolidLine));
    EXPECT_EQ(settings.plot.saccadeSelected, storedPen(Qt::blue, 4, Qt::SolidLine));
    EXPECT_EQ(settings.plot.blinks, storedPen(Qt::magenta, 2, Qt::DashLine));
    EXPECT_EQ(settings.text.separator, QStringLiteral("\t"));
    EXPECT_TRUE(settings.labels.onSignal);
    EXPECT_EQ(settings.indexes.windowMs, 3000);
    EXPECT_EQ(settings.indexes.updateMs, 300);
    EXPECT_FALSE(settings.indexes.commentNamesRecording);
    EXPECT_TRUE(settings.samples.offset);
    EXPECT_TRUE(settings.samples.invert);
    EXPECT_EQ(settings.timeWindowMs, 3000.0);
}

TEST(SaccadeCenterSettingsTest, EveryKeyIsReadIntoItsMember)
{
    const SaccadeCenterSettings settings = loaded(otherLines());
    EXPECT_EQ(settings.openFolder, QStringLiteral("/data/eyes = mine"));
    EXPECT_FALSE(settings.askForSignals);
    EXPECT_EQ(settings.timeUnits, TimeUnit::Hours);
    EXPECT_EQ(settings.plot.font.family(), QStringLiteral("Serif"));
    EXPECT_EQ(settings.plot.background, QColor(1, 2, 3));
    EXPECT_EQ(settings.plot.foreground, QColor(4, 5, 6));
    EXPECT_EQ(settings.plot.grid, QColor(7, 8, 9));
    EXPECT_EQ(settings.plot.eyeSignal, storedPen(QColor(10, 11, 12), 3, Qt::DotLine));
    EXPECT_EQ(settings.plot.saccadeLeft, storedPen(QColor(13, 14, 15), 4, Qt::DashDotLine));
    EXPECT_EQ(settings.plot.saccadeRight, storedPen(QColor(16, 17, 18), 5, Qt::DashDotDotLine));
    EXPECT_EQ(settings.plot.saccadeSelected, storedPen(QColor(19, 20, 21), 0, Qt::NoPen));
    EXPECT_EQ(settings.plot.blinks, storedPen(QColor(22, 23, 24), 99, Qt::SolidLine));
    EXPECT_FALSE(settings.ownPrintLook);
    EXPECT_EQ(settings.print.font.family(), QStringLiteral("Mono"));
    EXPECT_EQ(settings.print.background, QColor(101, 2, 3));
    EXPECT_EQ(settings.print.foreground, QColor(104, 5, 6));
    EXPECT_EQ(settings.print.grid, QColor(107, 8, 9));
    EXPECT_EQ(settings.print.eyeSignal.color(), QColor(110, 11, 12));
    EXPECT_EQ(settings.print.saccadeLeft.color(), QColor(113, 14, 15));
    EXPECT_EQ(settings.print.saccadeRight.color(), QColor(116, 17, 18));
    EXPECT_EQ(settings.print.saccadeSelected.color(), QColor(119, 20, 21));
    EXPECT_EQ(settings.print.blinks.color(), QColor(122, 23, 24));
    EXPECT_EQ(settings.text.separator, QStringLiteral(" ; "));
    EXPECT_FALSE(settings.labels.onSignal);
    EXPECT_EQ(settings.labels.saccadeColor, QColor(31, 32, 33));
    EXPECT_EQ(settings.labels.blinkColor, QColor(34, 35, 36));
    EXPECT_EQ(settings.indexes.windowMs, 3600000);
    EXPECT_EQ(settings.indexes.updateMs, 1);
    EXPECT_EQ(settings.saccadeParams.maxAmp, 450.25);
    EXPECT_EQ(settings.blinkParams.minVel, 21.5);
    EXPECT_EQ(settings.screenshotSize, QSize(64, 8192));
    EXPECT_EQ(settings.screenshotFormat, QStringLiteral("XPM"));
    EXPECT_EQ(settings.statDialogPosition, QPoint(-1280, 40));
    EXPECT_EQ(settings.statDialogSize, QSize(700, 500));
    EXPECT_EQ(settings.timeWindowMs, 2750.0);
}

TEST(SaccadeCenterSettingsTest, EveryFlagHasAKeyOfItsOwn)
{
    const std::pair<const char*, std::function<bool&(SaccadeCenterSettings&)>> Flags[] = {
        {"ask_for_signals_selection_confirmation", [](auto& s) -> bool& { return s.askForSignals; }},
        {"use_custom_print_scheme", [](auto& s) -> bool& { return s.ownPrintLook; }},
        {"export_include_title", [](auto& s) -> bool& { return s.text.includeTitle; }},
        {"export_include_file", [](auto& s) -> bool& { return s.text.includeFile; }},
        {"export_include_freq", [](auto& s) -> bool& { return s.text.includeFrequency; }},
        {"export_include_fields", [](auto& s) -> bool& { return s.text.includeFields; }},
        {"export_labels_on_signal", [](auto& s) -> bool& { return s.labels.onSignal; }},
        {"export_samples_arbitrary_units", [](auto& s) -> bool& { return s.samples.arbitraryUnits; }},
        {"export_samples_calib_factor", [](auto& s) -> bool& { return s.samples.calibFactor; }},
        {"export_samples_calib_unit", [](auto& s) -> bool& { return s.samples.calibUnit; }},
        {"export_samples_frequency", [](auto& s) -> bool& { return s.samples.frequency; }},
        {"export_samples_index", [](auto& s) -> bool& { return s.samples.index; }},
        {"export_samples_direction", [](auto& s) -> bool& { return s.samples.direction; }},
        {"export_samples_offset", [](auto& s) -> bool& { return s.samples.offset; }},
        {"export_samples_invert", [](auto& s) -> bool& { return s.samples.invert; }},
    };
    for (const auto& [key, flagOf] : Flags) {
        const QString name = QString::fromLatin1(key);
        SaccadeCenterSettings changed = start();
        const bool turned = !flagOf(changed);
        flagOf(changed) = turned;
        QStringList lines = startLines();
        lines.replaceInStrings(QRegularExpression(QStringLiteral("^%1=.*").arg(name)),
                               QStringLiteral("%1=%2").arg(name).arg(int(turned)));
        EXPECT_EQ(written(changed), sectionOf(lines)) << key;
        SaccadeCenterSettings read = loaded(lines);
        EXPECT_EQ(flagOf(read), turned) << key;
    }
}

TEST(SaccadeCenterSettingsTest, WhatIsReadIsWrittenAgain)
{
    const QStringList others = otherLines();
    EXPECT_EQ(written(loaded(others)), sectionOf(others));
    // One by one, so that no two keys share a member.
    for (int i = 0; i < others.size(); ++i) {
        QStringList lines = startLines();
        ASSERT_NE(lines[i], others[i]);
        lines[i] = others[i];
        EXPECT_EQ(written(loaded(lines)), sectionOf(lines)) << qPrintable(others[i]);
    }
}

TEST(SaccadeCenterSettingsTest, WhatTheStoreLacksKeepsItsValue)
{
    EXPECT_EQ(written(loaded({})), sectionOf(startLines()));
    SaccadeCenterSettings settings = start();
    settings.load(IniStore());
    EXPECT_EQ(written(settings), sectionOf(startLines()));
    settings = loaded(otherLines());
    settings.indexes.commentNamesRecording = true;
    settings.load(storeOf({QStringLiteral("time_units=0")}));
    QStringList lines = otherLines();
    lines[2] = QStringLiteral("time_units=0");
    EXPECT_EQ(written(settings), sectionOf(lines));
    EXPECT_TRUE(settings.indexes.commentNamesRecording);
}

TEST(SaccadeCenterSettingsTest, WhatIsBeyondTheLimitsKeepsItsValue)
{
    for (const char* line : {"time_units=-1",
                             "time_units=4",
                             "time_units=2147483647",
                             "plot_bkg=red",
                             "plot_bkg=256,0,0",
                             "plot_bkg=",
                             "plot_font=Sans,513,-1,5,50,0,0,0,0,0",
                             "plot_font=Sans,1e300,-1,5,50,0,0,0,0,0",
                             "plot_font=Sans,inf,-1,5,50,0,0,0,0,0",
                             "print_font=Sans,-1,100000,5,50,0,0,0,0,0",
                             "plot_eye_signal=0,0,0,100,1",
                             "plot_eye_signal=0,0,0,2147483647,1",
                             "plot_eye_signal=0,0,0,1,6",
                             "plot_eye_signal=0,0,0,1,7",
                             "plot_eye_signal=0,0,0,-1,1",
                             "print_blinks=255,0,0,2",
                             "export_separator=",
                             "export_labels_color=1,2",
                             "export_kiro_window=0",
                             "export_kiro_window=-3000",
                             "export_kiro_window=3600001",
                             "export_kiro_window=much",
                             "export_kiro_update=0",
                             "export_kiro_update=3600001",
                             "export_kiro_update=99999999999",
                             "sacc_det_params=",
                             "sacc_det_params=Version;2;9",
                             "sacc_det_params=1;2;3",
                             "blink_det_params=Version;1;200",
                             "blink_det_params=nonsense",
                             "screenshot_size=63,1200",
                             "screenshot_size=1600,8193",
                             "screenshot_size=-1,-1",
                             "screenshot_size=1600",
                             "screenshot_format=",
                             "screenshot_format=GIF",
                             "screenshot_format=png",
                             "stat_dialog_pos=40000,0",
                             "stat_dialog_pos=0,-2147483648",
                             "stat_dialog_pos=x,y",
                             "stat_dialog_size=0,480",
                             "stat_dialog_size=640,-1",
                             "stat_dialog_size=2147483647,480",
                             "time_window=499.9999",
                             "time_window=60000.0001",
                             "time_window=0",
                             "time_window=-3000",
                             "time_window=nan",
                             "time_window=inf",
                             "time_window=1e999",
                             "time_window=soon"}) {
        EXPECT_EQ(written(loaded({QString::fromLatin1(line)})), sectionOf(startLines())) << line;
    }
}

TEST(SaccadeCenterSettingsTest, TheLimitsThemselvesAreTaken)
{
    EXPECT_EQ(loaded({QStringLiteral("time_window=500")}).timeWindowMs, 500.0);
    EXPECT_EQ(loaded({QStringLiteral("time_window=60000")}).timeWindowMs, 60000.0);
    EXPECT_EQ(loaded({QStringLiteral("export_kiro_update=3600000")}).indexes.updateMs, 3600000);
    EXPECT_EQ(loaded({QStringLiteral("export_kiro_window=1")}).indexes.windowMs, 1);
    EXPECT_EQ(loaded({QStringLiteral("screenshot_size=8192,64")}).screenshotSize, QSize(8192, 64));
    EXPECT_EQ(loaded({QStringLiteral("plot_font=Sans,512,-1,5,50,0,0,0,0,0")}).plot.font.pointSize(), 512);
}

TEST(SaccadeCenterSettingsTest, JpegHasTwoNames)
{
    EXPECT_EQ(loaded({QStringLiteral("screenshot_format=JPG")}).screenshotFormat, QStringLiteral("JPG"));
    EXPECT_EQ(loaded({QStringLiteral("screenshot_format=JPEG")}).screenshotFormat, QStringLiteral("JPG"));
}

TEST(SaccadeCenterSettingsTest, PensInTheirOlderFormAreRead)
{
    const SaccadeCenterSettings settings =
        loaded({QStringLiteral("plot_blinks_pen_color=1,2,3"), QStringLiteral("plot_blinks_pen_width=3"),
                QStringLiteral("plot_blinks_pen_style=3")});
    EXPECT_EQ(settings.plot.blinks, storedPen(QColor(1, 2, 3), 3, Qt::DotLine));
}

TEST(SaccadeCenterSettingsTest, PrintsWithTheLookOfTheScreenUnlessThereIsAnOwnOne)
{
    SaccadeCenterSettings settings;
    settings.plot.background = Qt::yellow;
    settings.print.background = Qt::cyan;
    EXPECT_EQ(settings.printLook().background, QColor(Qt::cyan));
    settings.ownPrintLook = false;
    EXPECT_EQ(settings.printLook().background, QColor(Qt::yellow));
}

TEST(SaccadeCenterSettingsTest, TheSchemeOfAChartHasTheLooksFontsAndColours)
{
    SaccadePlotLook look;
    look.font = QFont(QStringLiteral("Serif"), 11);
    look.background = Qt::darkBlue;
    look.foreground = Qt::yellow;
    look.grid = Qt::darkGray;
    const CurvePlotScheme scheme = curvePlotScheme(look);
    EXPECT_EQ(scheme.axis(), look.font);
    EXPECT_EQ(scheme.axisTitle(), look.font);
    EXPECT_EQ(scheme.title().family(), QStringLiteral("Serif"));
    EXPECT_EQ(scheme.title().pointSize(), 13);
    EXPECT_EQ(scheme.title().weight(), 75);
    EXPECT_EQ(scheme.bkg(), QColor(Qt::darkBlue));
    EXPECT_EQ(scheme.border().color(), QColor(Qt::yellow));
    EXPECT_EQ(scheme.grid().color(), QColor(Qt::darkGray));
    EXPECT_EQ(scheme.grid().style(), Qt::SolidLine);
    EXPECT_EQ(scheme.grid().width(), 1);
}
