#include "reviewsettings.h"

#include "inistore.h"
#include "settingsfields.h"

#include <QPageLayout>
#include <QPageSize>

#include <algorithm>
#include <limits>
#include <type_traits>

namespace
{

constexpr int PaperSourceMost = 14; // QPrinter::LastPaperSource

/// The parts of the look on paper; the others are those of the screen.
SchemeKeys printKeys()
{
    return {QStringLiteral("print_font"),
            QStringLiteral("print_bkg_color"),
            QStringLiteral("print_frg_pen"),
            QStringLiteral("print_data_pen"),
            QStringLiteral("print_grid_pen"),
            QStringLiteral("print_marker_pen"),
            QStringLiteral("print_pointer_pen"),
            QStringLiteral("print_draw_style"),
            QStringLiteral("print_draw_horz_grid"),
            QStringLiteral("print_draw_vert_grid"),
            QString(),
            QString()};
}

MultiPlotScheme startPrintScheme()
{
    MultiPlotScheme scheme;
    scheme.setName(QStringLiteral("MultiPlot print scheme"));
    scheme.setBkg(Qt::white);
    scheme.setFrg(storedPen(Qt::black, 1, Qt::SolidLine));
    scheme.setData(storedPen(Qt::black, 3, Qt::SolidLine));
    scheme.setGrid(storedPen(Qt::gray, 0, Qt::DotLine));
    scheme.setMarker(storedPen(Qt::red, 2, Qt::DashLine));
    scheme.setDrawStyle(MultiPlotScheme::Lines);
    scheme.setHorzGrid(true);
    scheme.setVertGrid(true);
    return scheme;
}

QFont startRangeFont()
{
    QFont font;
    font.setPointSize(std::max(6, font.pointSize() - 2));
    return font;
}

template <int Least, int Most>
bool isWithin(const int& value)
{
    return value >= Least && value <= Most;
}

constexpr auto isPixels =
    isWithin<ReviewSettings::ScreenshotLeastPixels, ReviewSettings::ScreenshotMostPixels>;

/// False for NaN too.
bool isPrecision(const double& pixels)
{
    return pixels >= ReviewSetup::FastDrawPrecisionLeast && pixels <= ReviewSetup::FastDrawPrecisionMost;
}

template <class Setup, class Field>
void walkSetup(Setup& setup, const Field& field)
{
    field(QStringLiteral("use_custom_print_scheme"), setup.useCustomPrintScheme, anyBool);
    field(QStringLiteral("sig_stat_window"), setup.sigStatWindow,
          isWithin<0, std::numeric_limits<int>::max()>);
    field(QStringLiteral("sig_stat_usecalib"), setup.sigStatUseCalib, anyBool);
    field(QStringLiteral("fast_draw_enable"), setup.fastDrawEnable, anyBool);
    field(QStringLiteral("fast_draw_time"), setup.fastDrawTime, isWithin<0, ReviewSetup::FastDrawTimeMost>);
    field(QStringLiteral("fast_draw_precision_double"), setup.fastDrawPrecision, isPrecision);
    field(QStringLiteral("printer_paper_source"), setup.printerPaperSource, isWithin<0, PaperSourceMost>);
    field(QStringLiteral("printer_page_size"), setup.printerPageSize, isWithin<0, QPageSize::LastPageSize>);
    field(QStringLiteral("printer_orientation"), setup.printerOrientation,
          isWithin<QPageLayout::Portrait, QPageLayout::Landscape>);
    field(QStringLiteral("range_bkg_color"), setup.rangeBkgColor, isColor);
    field(QStringLiteral("range_frg_color"), setup.rangeFrgColor, isColor);
    field(QStringLiteral("Range_center_color"), setup.rangeCenterColor, isColor);
    field(QStringLiteral("range_text_font"), setup.rangeTextFont, isPlotFont);
    field(QStringLiteral("range_text_color"), setup.rangeTextColor, isColor);
}

/// A place that is not known is not written.
template <class Place, class Field>
void walkPlace(Place& place, const QString& positionKey, const QString& sizeKey, const Field& field)
{
    if (std::is_const_v<Place> && !place.isKnown())
        return;
    field(sizeKey, place.size, isWindowSize);
    if (place.isKnown())
        field(positionKey, place.position, isWindowPosition);
}

template <class Settings, class Field>
void walkDialogs(Settings& settings, const Field& field)
{
    walkPlace(settings.videoDialog, QStringLiteral("video_dialog_pos"), QStringLiteral("video_dialog_size"),
              field);
    walkPlace(settings.managerDialog, QStringLiteral("markers_manager_position"),
              QStringLiteral("markers_manager_size"), field);
    walkPlace(settings.statisticsDialog, QStringLiteral("sig_stat_pos"), QStringLiteral("sig_stat_size"),
              field);
    walkPlace(settings.lookDialog, QStringLiteral("multiplotlook_pos"), QStringLiteral("multiplotlook_size"),
              field);
}

/// The one list of keys, for reading and for writing, but for the lists and the look on paper.
template <class Settings, class Field>
void walk(Settings& settings, const Field& field)
{
    walkDialogs(settings, field);
    field(QStringLiteral("video_dialog_time_format"), settings.videoTimeFormat,
          isWithin<0, ReviewSettings::VideoTimeFormatMost>);
    field(QStringLiteral("label_export_filter"), settings.labelExportFilter, isNotEmpty);
    field(QStringLiteral("label_templates_dir_path"), settings.labelTemplatesFolder, anyString);
    field(QStringLiteral("dir_load"), settings.lastDir, anyString);
    walkSetup(settings.setup, field);
    field(QStringLiteral("screenshot_width"), settings.screenshotWidth, isPixels);
    field(QStringLiteral("screenshot_height"), settings.screenshotHeight, isPixels);
    field(QStringLiteral("screenshot_format"), settings.screenshotFormat, isImageFormat);
    field(QStringLiteral("screenshot_folder"), settings.screenshotFolder, anyString);
    field(QStringLiteral("list_width"), settings.listWidth, isWithin<0, ReviewSettings::ListWidthMost>);
}

DialogPlace centredPlace(const QSize& size)
{
    return {centredOnScreen(size), size};
}

} // namespace

ReviewSetup::ReviewSetup()
    : printScheme(startPrintScheme())
    , rangeTextFont(startRangeFont())
{
}

ReviewSettings::ReviewSettings()
    : videoDialog(centredPlace({640, 480}))
    , labelExportFilter(QStringLiteral("Text file (*.txt)"))
    , labelTemplatesFolder(documentsFolder())
    , lastDir(documentsFolder())
    , screenshotFolder(documentsFolder())
    , managerDialog(centredPlace({800, 600}))
{
}

QString ReviewSettings::section()
{
    return QStringLiteral("SIGNALS_REVIEW");
}

void ReviewSettings::load(const IniStore& store)
{
    walk(*this, SettingsReader(store, section()));
    screenshotFormat = mainImageFormat(screenshotFormat);
    readScheme(store, section(), printKeys(), setup.printScheme);
    schemes.load(store, section());
    labels.load(store, section());
    mruFiles.load(store, section());
    views.load(store, section());
}

void ReviewSettings::save(IniStore& store) const
{
    walk(*this, SettingsWriter(store, section()));
    writeScheme(store, section(), printKeys(), setup.printScheme);
    schemes.save(store, section());
    labels.save(store, section());
    mruFiles.save(store, section());
    views.save(store, section());
}
