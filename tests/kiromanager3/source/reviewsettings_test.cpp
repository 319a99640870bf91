#include "reviewsettings.h"

#include "inistore.h"
#include "settingsfields.h"

#include <QStandardPaths>
#include <QStringList>

#include <gtest/gtest.h>

#include <algorithm>

namespace
{

/// A font of a name, which the font of an application has and that of a test without one not.
const QFont Sans(QStringLiteral("Sans"), 10);

ReviewSettings start()
{
    ReviewSettings settings;
    settings.setup.printScheme.setFont(Sans);
    settings.setup.rangeTextFont = Sans;
    MultiPlotScheme scheme = settings.schemes.current();
    scheme.setFont(Sans);
    settings.schemes.changeCurrent(scheme);
    return settings;
}

QString documents()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

/// Keys and values of new settings, in order, but for the lists at the end.
QStringList startLines(const QString& font = Sans.toString(), const QString& rangeFont = Sans.toString())
{
    return {// There is no screen here to stand in the middle of.
            QStringLiteral("video_dialog_size=640,480"),
            QStringLiteral("video_dialog_pos=0,0"),
            QStringLiteral("markers_manager_size=800,600"),
            QStringLiteral("markers_manager_position=0,0"),
            QStringLiteral("video_dialog_time_format=1"),
            QStringLiteral("label_export_filter=Text file (*.txt)"),
            QStringLiteral("label_templates_dir_path=") + documents(),
            QStringLiteral("dir_load=") + documents(),
            QStringLiteral("use_custom_print_scheme=0"),
            QStringLiteral("sig_stat_window=300"),
            QStringLiteral("sig_stat_usecalib=1"),
            QStringLiteral("fast_draw_enable=1"),
            QStringLiteral("fast_draw_time=30"),
            QStringLiteral("fast_draw_precision_double=1.5000000000"),
            QStringLiteral("printer_paper_source=6"),
            QStringLiteral("printer_page_size=0"),
            QStringLiteral("printer_orientation=1"),
            QStringLiteral("range_bkg_color=255,255,255"),
            QStringLiteral("range_frg_color=255,255,0"),
            QStringLiteral("Range_center_color=255,0,0"),
            QStringLiteral("range_text_font=") + rangeFont,
            QStringLiteral("range_text_color=0,0,0"),
            QStringLiteral("screenshot_width=1024"),
            QStringLiteral("screenshot_height=768"),
            QStringLiteral("screenshot_format=BMP"),
            QStringLiteral("screenshot_folder=") + documents(),
            QStringLiteral("list_width=0"),
            QStringLiteral("print_font=") + font,
            QStringLiteral("print_bkg_color=255,255,255"),
            QStringLiteral("print_frg_pen=0,0,0,1,1"),
            QStringLiteral("print_data_pen=0,0,0,3,1"),
            QStringLiteral("print_grid_pen=160,160,164,0,3"),
            QStringLiteral("print_marker_pen=255,0,0,2,2"),
            QStringLiteral("print_pointer_pen=122,31,138,0,1"),
            QStringLiteral("print_draw_style=lines"),
            QStringLiteral("print_draw_horz_grid=1"),
            QStringLiteral("print_draw_vert_grid=1")};
}

/// What the lists write, which have tests of their own.
QStringList listLines(const ReviewSettings& settings)
{
    IniStore store;
    store.setSection(ReviewSettings::section());
    settings.schemes.save(store, ReviewSettings::section());
    settings.labels.save(store, ReviewSettings::section());
    settings.mruFiles.save(store, ReviewSettings::section());
    settings.views.save(store, ReviewSettings::section());
    QStringList lines;
    for (const IniStore::Entry& entry : store.entries(ReviewSettings::section()))
        lines << entry.first + QLatin1Char('=') + entry.second;
    return lines;
}

/// The same keys as in startLines() with a value each that is not the one of new settings.
QStringList otherLines()
{
    const QString screenFont = QFont(QStringLiteral("Serif"), 14, QFont::Bold).toString();
    const QString paperFont = QFont(QStringLiteral("Mono"), 7, QFont::Normal, true).toString();
    return {QStringLiteral("video_dialog_size=320,200"),
            QStringLiteral("video_dialog_pos=-1280,40"),
            QStringLiteral("markers_manager_size=901,401"),
            QStringLiteral("markers_manager_position=11,12"),
            QStringLiteral("video_dialog_time_format=2"),
            QStringLiteral("label_export_filter=CSV file (*.csv)"),
            QStringLiteral("label_templates_dir_path=/templates = mine"),
            QStringLiteral("dir_load=/data"),
            QStringLiteral("use_custom_print_scheme=1"),
            QStringLiteral("sig_stat_window=0"),
            QStringLiteral("sig_stat_usecalib=0"),
            QStringLiteral("fast_draw_enable=0"),
            QStringLiteral("fast_draw_time=86400"),
            QStringLiteral("fast_draw_precision_double=2.2500000000"),
            QStringLiteral("printer_paper_source=14"),
            QStringLiteral("printer_page_size=8"),
            QStringLiteral("printer_orientation=0"),
            QStringLiteral("range_bkg_color=1,2,3"),
            QStringLiteral("range_frg_color=4,5,6"),
            QStringLiteral("Range_center_color=7,8,9"),
            QStringLiteral("range_text_font=") + screenFont,
            QStringLiteral("range_text_color=10,11,12"),
            QStringLiteral("screenshot_width=256"),
            QStringLiteral("screenshot_height=3072"),
            QStringLiteral("screenshot_format=XPM"),
            QStringLiteral("screenshot_folder=/pictures"),
            QStringLiteral("list_width=222"),
            QStringLiteral("print_font=") + paperFont,
            QStringLiteral("print_bkg_color=13,14,15"),
            QStringLiteral("print_frg_pen=16,17,18,2,2"),
            QStringLiteral("print_data_pen=19,20,21,4,3"),
            QStringLiteral("print_grid_pen=22,23,24,5,4"),
            QStringLiteral("print_marker_pen=25,26,27,6,5"),
            QStringLiteral("print_pointer_pen=28,29,30,99,0"),
            QStringLiteral("print_draw_style=points"),
            QStringLiteral("print_draw_horz_grid=0"),
            QStringLiteral("print_draw_vert_grid=0")};
}

IniStore storeOf(const QStringList& lines)
{
    IniStore store;
    store.parse(QStringLiteral("[SIGNALS_REVIEW]\n") + lines.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    return store;
}

ReviewSettings loaded(const QStringList& lines)
{
    ReviewSettings settings = start();
    settings.load(storeOf(lines));
    return settings;
}

std::string written(const ReviewSettings& settings)
{
    IniStore store;
    store.setSection(ReviewSettings::section());
    settings.save(store);
    return store.toString().toStdString();
}

std::string sectionOf(const QStringList& lines)
{
    return storeOf(lines).toString().toStdString();
}

} // namespace

TEST(ReviewSettingsTest, StartValuesUnderTheirKeys)
{
    const ReviewSettings settings;
    QFont small;
    small.setPointSize(std::max(6, QFont().pointSize() - 2));
    EXPECT_EQ(written(settings),
              sectionOf(startLines(QFont().toString(), small.toString()) + listLines(settings)));
}

TEST(ReviewSettingsTest, StartValuesOfTheMembers)
{
    const ReviewSettings settings;
    EXPECT_EQ(settings.videoDialog.size, QSize(640, 480));
    EXPECT_EQ(settings.videoTimeFormat, 1);
    EXPECT_EQ(settings.lastDir, documents());
    EXPECT_EQ(settings.setup.printScheme.name(), QStringLiteral("MultiPlot print scheme"));
    EXPECT_EQ(settings.setup.printScheme.drawStyle(), MultiPlotScheme::Lines);
    EXPECT_EQ(settings.setup.printScheme.data(), storedPen(Qt::black, 3, Qt::SolidLine));
    EXPECT_EQ(settings.setup.printScheme.grid(), storedPen(Qt::gray, 0, Qt::DotLine));
    EXPECT_EQ(settings.setup.printScheme.marker(), storedPen(Qt::red, 2, Qt::DashLine));
    EXPECT_TRUE(settings.setup.fastDrawEnable);
    EXPECT_EQ(settings.setup.fastDrawTime, 30);
    EXPECT_EQ(settings.setup.fastDrawPrecision, 1.5);
    EXPECT_EQ(settings.setup.sigStatWindow, 300);
    EXPECT_EQ(settings.schemes.currentName(), QStringLiteral("MultiPlot default scheme"));
    EXPECT_FALSE(settings.statisticsDialog.isKnown());
    EXPECT_FALSE(settings.lookDialog.isKnown());
    EXPECT_EQ(settings.mruFiles.files(), QStringList());
    EXPECT_EQ(settings.views.all().size(), 0);
}

TEST(ReviewSettingsTest, EveryKeyIsReadIntoItsMember)
{
    const ReviewSettings settings = loaded(otherLines());
    EXPECT_EQ(settings.videoDialog.size, QSize(320, 200));
    EXPECT_EQ(settings.videoDialog.position, QPoint(-1280, 40));
    EXPECT_EQ(settings.managerDialog.size, QSize(901, 401));
    EXPECT_EQ(settings.managerDialog.position, QPoint(11, 12));
    EXPECT_EQ(settings.videoTimeFormat, 2);
    EXPECT_EQ(settings.labelExportFilter, QStringLiteral("CSV file (*.csv)"));
    EXPECT_EQ(settings.labelTemplatesFolder, QStringLiteral("/templates = mine"));
    EXPECT_EQ(settings.lastDir, QStringLiteral("/data"));
    EXPECT_EQ(settings.screenshotWidth, 256);
    EXPECT_EQ(settings.screenshotHeight, 3072);
    EXPECT_EQ(settings.screenshotFormat, QStringLiteral("XPM"));
    EXPECT_EQ(settings.screenshotFolder, QStringLiteral("/pictures"));
    EXPECT_EQ(settings.listWidth, 222);
    const ReviewSetup& setup = settings.setup;
    EXPECT_TRUE(setup.useCustomPrintScheme);
    EXPECT_EQ(setup.sigStatWindow, 0);
    EXPECT_FALSE(setup.sigStatUseCalib);
    EXPECT_FALSE(setup.fastDrawEnable);
    EXPECT_EQ(setup.fastDrawTime, 86400);
    EXPECT_EQ(setup.fastDrawPrecision, 2.25);
    EXPECT_EQ(setup.printerPaperSource, 14);
    EXPECT_EQ(setup.printerPageSize, 8);
    EXPECT_EQ(setup.printerOrientation, 0);
    EXPECT_EQ(setup.rangeBkgColor, QColor(1, 2, 3));
    EXPECT_EQ(setup.rangeFrgColor, QColor(4, 5, 6));
    EXPECT_EQ(setup.rangeCenterColor, QColor(7, 8, 9));
    EXPECT_EQ(setup.rangeTextFont.family(), QStringLiteral("Serif"));
    EXPECT_EQ(setup.rangeTextColor, QColor(10, 11, 12));
    EXPECT_EQ(setup.printScheme.font().family(), QStringLiteral("Mono"));
    EXPECT_EQ(setup.printScheme.bkg(), QColor(13, 14, 15));
    EXPECT_EQ(setup.printScheme.frg(), storedPen(QColor(16, 17, 18), 2, Qt::DashLine));
    EXPECT_EQ(setup.printScheme.data(), storedPen(QColor(19, 20, 21), 4, Qt::DotLine));
    EXPECT_EQ(setup.printScheme.grid(), storedPen(QColor(22, 23, 24), 5, Qt::DashDotLine));
    EXPECT_EQ(setup.printScheme.marker(), storedPen(QColor(25, 26, 27), 6, Qt::DashDotDotLine));
    EXPECT_EQ(setup.printScheme.pointer(), storedPen(QColor(28, 29, 30), 99, Qt::NoPen));
    EXPECT_EQ(setup.printScheme.drawStyle(), MultiPlotScheme::Points);
    EXPECT_FALSE(setup.printScheme.horzGrid());
    EXPECT_FALSE(setup.printScheme.vertGrid());
    EXPECT_EQ(setup.printScheme.name(), QStringLiteral("MultiPlot print scheme"));
}

TEST(ReviewSettingsTest, WhatIsReadIsWrittenAgain)
{
    const QStringList others = otherLines();
    const QStringList lists = listLines(start());
    EXPECT_EQ(written(loaded(others)), sectionOf(others + lists));
    // One by one, so that no two keys share a member.
    for (int i = 0; i < others.size(); ++i) {
        QStringList lines = startLines();
        ASSERT_NE(lines[i], others[i]);
        lines[i] = others[i];
        EXPECT_EQ(written(loaded(lines)), sectionOf(lines + lists)) << qPrintable(others[i]);
    }
}

TEST(ReviewSettingsTest, TheListsAreAmongThem)
{
    ReviewSettings settings = start();
    MultiPlotScheme night;
    night.setName(QStringLiteral("night"));
    night.setFont(Sans);
    settings.schemes.set({settings.schemes.current(), night}, QStringLiteral("night"));
    settings.labels.setTemplates({{QStringLiteral("T"), QStringLiteral("n"), QStringLiteral("d"), Qt::red}});
    settings.labels.remember(QStringLiteral("n"), QStringLiteral("d"), Qt::red);
    settings.mruFiles.add(QStringLiteral("/r.kiro"));
    settings.views.add(QStringLiteral("v"), {QStringLiteral("A"), QStringLiteral("B")},
                       {QStringLiteral("B")});
    const std::string text = written(settings);
    EXPECT_EQ(text, sectionOf(startLines() + listLines(settings)));
    IniStore store;
    store.parse(QString::fromStdString(text));
    ReviewSettings read = start();
    read.load(store);
    EXPECT_EQ(written(read), text);
    EXPECT_EQ(read.schemes.currentName(), QStringLiteral("night"));
    EXPECT_EQ(read.labels.next().labelName, QStringLiteral("n"));
    EXPECT_EQ(read.labels.templates().size(), 1);
    EXPECT_EQ(read.mruFiles.files(), QStringList{QStringLiteral("/r.kiro")});
    ASSERT_EQ(read.views.all().size(), 1);
    EXPECT_EQ(read.views.all()[0].viewSignals, QStringList{QStringLiteral("B")});
}

TEST(ReviewSettingsTest, PlacesOfDialogsAreKeptOnceTheyAreKnown)
{
    ReviewSettings settings = start();
    settings.statisticsDialog = {{1, 2}, {300, 400}};
    settings.lookDialog = {{3, 4}, {500, 600}};
    const std::string text = written(settings);
    for (const char* line : {"\nsig_stat_pos=1,2\n", "\nsig_stat_size=300,400\n", "\nmultiplotlook_pos=3,4\n",
                             "\nmultiplotlook_size=500,600\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line;
    IniStore store;
    store.parse(QString::fromStdString(text));
    ReviewSettings read = start();
    read.load(store);
    EXPECT_EQ(read.statisticsDialog.position, QPoint(1, 2));
    EXPECT_EQ(read.statisticsDialog.size, QSize(300, 400));
    EXPECT_EQ(read.lookDialog.position, QPoint(3, 4));
    EXPECT_EQ(read.lookDialog.size, QSize(500, 600));
}

TEST(ReviewSettingsTest, APlaceWithoutSizeIsNotKnown)
{
    const ReviewSettings settings =
        loaded({QStringLiteral("sig_stat_pos=1,2"), QStringLiteral("sig_stat_size=0,5")});
    EXPECT_FALSE(settings.statisticsDialog.isKnown());
    EXPECT_EQ(written(settings), sectionOf(startLines() + listLines(start())));
}

TEST(ReviewSettingsTest, WhatTheStoreLacksKeepsItsValue)
{
    EXPECT_EQ(written(loaded({})), sectionOf(startLines() + listLines(start())));
    ReviewSettings settings = loaded(otherLines());
    settings.mruFiles.add(QStringLiteral("/r.kiro"));
    const std::string before = written(settings);
    settings.load(IniStore());
    EXPECT_EQ(written(settings), before);
}

TEST(ReviewSettingsTest, WhatIsBeyondTheLimitsKeepsItsValue)
{
    const std::string expected = sectionOf(startLines() + listLines(start()));
    for (const char* line : {"video_dialog_size=0,480",
                             "video_dialog_size=640,-1",
                             "video_dialog_size=2147483647,480",
                             "video_dialog_size=640",
                             "video_dialog_pos=40000,0",
                             "video_dialog_pos=0,-2147483648",
                             "video_dialog_pos=x,y",
                             "video_dialog_time_format=-1",
                             "video_dialog_time_format=3",
                             "label_export_filter=",
                             "markers_manager_size=-1,-1",
                             "markers_manager_position=0,32767",
                             "sig_stat_window=-1",
                             "fast_draw_time=-1",
                             "fast_draw_time=86401",
                             "fast_draw_precision_double=0",
                             "fast_draw_precision_double=-1.5",
                             "fast_draw_precision_double=0.09",
                             "fast_draw_precision_double=100.1",
                             "fast_draw_precision_double=nan",
                             "fast_draw_precision_double=inf",
                             "fast_draw_precision_double=1e999",
                             "fast_draw_precision_double=fine",
                             "printer_paper_source=-1",
                             "printer_paper_source=15",
                             "printer_page_size=-1",
                             "printer_page_size=100000",
                             "printer_orientation=2",
                             "printer_orientation=-1",
                             "range_bkg_color=256,0,0",
                             "range_frg_color=yellow",
                             "Range_center_color=1,2",
                             "range_center_color=1,2,3",
                             "range_text_font=Sans,513,-1,5,50,0,0,0,0,0",
                             "range_text_font=Sans,inf,-1,5,50,0,0,0,0,0",
                             "range_text_color=",
                             "screenshot_width=255",
                             "screenshot_width=3073",
                             "screenshot_width=wide",
                             "screenshot_height=0",
                             "screenshot_height=-2147483648",
                             "screenshot_format=",
                             "screenshot_format=GIF",
                             "print_font=Sans,-1,100000,5,50,0,0,0,0,0",
                             "print_bkg_color=red",
                             "print_frg_pen=0,0,0,100,1",
                             "print_data_pen=0,0,0,1,6",
                             "print_grid_pen=0,0,0,-1,1",
                             "print_marker_pen=255,0,0,2",
                             "print_pointer_pen=0,0,0,2147483647,1",
                             "print_draw_style=curves"}) {
        EXPECT_EQ(written(loaded({QString::fromLatin1(line)})), expected) << line;
    }
}

TEST(ReviewSettingsTest, TheLimitsThemselvesAreTaken)
{
    EXPECT_EQ(loaded({QStringLiteral("fast_draw_time=0")}).setup.fastDrawTime, 0);
    EXPECT_EQ(loaded({QStringLiteral("fast_draw_precision_double=0.1")}).setup.fastDrawPrecision, 0.1);
    EXPECT_EQ(loaded({QStringLiteral("fast_draw_precision_double=100")}).setup.fastDrawPrecision, 100.0);
    EXPECT_EQ(loaded({QStringLiteral("video_dialog_time_format=0")}).videoTimeFormat, 0);
    EXPECT_EQ(loaded({QStringLiteral("screenshot_width=3072")}).screenshotWidth, 3072);
    EXPECT_EQ(loaded({QStringLiteral("screenshot_height=256")}).screenshotHeight, 256);
}

TEST(ReviewSettingsTest, JpegHasTwoNames)
{
    EXPECT_EQ(loaded({QStringLiteral("screenshot_format=JPG")}).screenshotFormat, QStringLiteral("JPG"));
    EXPECT_EQ(loaded({QStringLiteral("screenshot_format=JPEG")}).screenshotFormat, QStringLiteral("JPG"));
    EXPECT_EQ(loaded({QStringLiteral("screenshot_format=PNG")}).screenshotFormat, QStringLiteral("PNG"));
}

TEST(ReviewSettingsTest, PrintsAsOnTheScreenUnlessThereIsAnOwnLook)
{
    ReviewSettings settings;
    MultiPlotScheme screen;
    screen.setName(QStringLiteral("screen"));
    EXPECT_EQ(settings.printScheme(screen).name(), QStringLiteral("screen"));
    settings.setup.useCustomPrintScheme = true;
    EXPECT_EQ(settings.printScheme(screen).name(), QStringLiteral("MultiPlot print scheme"));
}
