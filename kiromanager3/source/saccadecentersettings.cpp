#include "saccadecentersettings.h"

#include "detectionline.h"
#include "inistore.h"
#include "settingsfields.h"

namespace
{

bool isTimeUnit(const TimeUnit& unit)
{
    return unit >= TimeUnit::Samples && unit <= TimeUnit::Hours;
}

bool isIndexTime(const int& ms)
{
    return ms >= 1 && ms <= SaccadeIndexExport::MostMs;
}

/// False for NaN too.
bool isTimeWindow(const double& ms)
{
    return ms >= TimeWindow::LeastLength && ms <= TimeWindow::GreatestLength;
}

bool isScreenshotSize(const QSize& size)
{
    constexpr int Least = SaccadeCenterSettings::ScreenshotLeastPixels;
    constexpr int Most = SaccadeCenterSettings::ScreenshotMostPixels;
    return size.width() >= Least && size.width() <= Most && size.height() >= Least && size.height() <= Most;
}

/// Takes from the store what is there and passes.
class Reader : public SettingsReader
{
public:
    explicit Reader(const IniStore& store)
        : SettingsReader(store, SaccadeCenterSettings::section())
    {
    }

    using SettingsReader::operator();
    void operator()(const QString& key, TimeUnit& unit, bool (*accepts)(const TimeUnit&)) const
    {
        const auto stored = TimeUnit(read(key, int(unit)));
        if (accepts(stored))
            unit = stored;
    }
    void operator()(const QString& key, SaccadeDetectionParams& params) const
    {
        readSaccadeLine(read(key, QString()), params);
    }
    void operator()(const QString& key, BlinkDetectionParams& params) const
    {
        readBlinkLine(read(key, QString()), params);
    }
};

/// Puts every value into the store.
class Writer : public SettingsWriter
{
public:
    explicit Writer(IniStore& store)
        : SettingsWriter(store, SaccadeCenterSettings::section())
    {
    }

    using SettingsWriter::operator();
    void operator()(const QString& key, TimeUnit unit, bool (* /*accepts*/)(const TimeUnit&)) const
    {
        write(key, int(unit));
    }
    void operator()(const QString& key, const SaccadeDetectionParams& params) const
    {
        write(key, saccadeLine(params));
    }
    void operator()(const QString& key, const BlinkDetectionParams& params) const
    {
        write(key, blinkLine(params));
    }
};

template <class Look, class Field>
void walkLook(Look& look, const QString& prefix, const Field& field)
{
    field(prefix + QStringLiteral("font"), look.font, isPlotFont);
    field(prefix + QStringLiteral("bkg"), look.background, isColor);
    field(prefix + QStringLiteral("frg"), look.foreground, isColor);
    field(prefix + QStringLiteral("grid"), look.grid, isColor);
    field(prefix + QStringLiteral("eye_signal"), look.eyeSignal, isPlotPen);
    field(prefix + QStringLiteral("sacc_left"), look.saccadeLeft, isPlotPen);
    field(prefix + QStringLiteral("sacc_right"), look.saccadeRight, isPlotPen);
    field(prefix + QStringLiteral("sacc_sel"), look.saccadeSelected, isPlotPen);
    field(prefix + QStringLiteral("blinks"), look.blinks, isPlotPen);
}

template <class Settings, class Field>
void walkExports(Settings& settings, const Field& field)
{
    auto& text = settings.text;
    field(QStringLiteral("export_include_title"), text.includeTitle, anyBool);
    field(QStringLiteral("export_include_file"), text.includeFile, anyBool);
    field(QStringLiteral("export_include_freq"), text.includeFrequency, anyBool);
    field(QStringLiteral("export_include_fields"), text.includeFields, anyBool);
    field(QStringLiteral("export_separator"), text.separator, isNotEmpty);
    auto& labels = settings.labels;
    field(QStringLiteral("export_labels_on_signal"), labels.onSignal, anyBool);
    field(QStringLiteral("export_labels_color"), labels.saccadeColor, isColor);
    field(QStringLiteral("export_blink_labels_color"), labels.blinkColor, isColor);
    field(QStringLiteral("export_kiro_window"), settings.indexes.windowMs, isIndexTime);
    field(QStringLiteral("export_kiro_update"), settings.indexes.updateMs, isIndexTime);
    auto& samples = settings.samples;
    field(QStringLiteral("export_samples_arbitrary_units"), samples.arbitraryUnits, anyBool);
    field(QStringLiteral("export_samples_calib_factor"), samples.calibFactor, anyBool);
    field(QStringLiteral("export_samples_calib_unit"), samples.calibUnit, anyBool);
    field(QStringLiteral("export_samples_frequency"), samples.frequency, anyBool);
    field(QStringLiteral("export_samples_index"), samples.index, anyBool);
    field(QStringLiteral("export_samples_direction"), samples.direction, anyBool);
    field(QStringLiteral("export_samples_offset"), samples.offset, anyBool);
    field(QStringLiteral("export_samples_invert"), samples.invert, anyBool);
}

/// The one list of keys, for reading and for writing.
template <class Settings, class Field>
void walk(Settings& settings, const Field& field)
{
    field(QStringLiteral("dir_open"), settings.openFolder, anyString);
    field(QStringLiteral("ask_for_signals_selection_confirmation"), settings.askForSignals, anyBool);
    field(QStringLiteral("time_units"), settings.timeUnits, isTimeUnit);
    walkLook(settings.plot, QStringLiteral("plot_"), field);
    field(QStringLiteral("use_custom_print_scheme"), settings.ownPrintLook, anyBool);
    walkLook(settings.print, QStringLiteral("print_"), field);
    walkExports(settings, field);
    field(QStringLiteral("sacc_det_params"), settings.saccadeParams);
    field(QStringLiteral("blink_det_params"), settings.blinkParams);
    field(QStringLiteral("screenshot_size"), settings.screenshotSize, isScreenshotSize);
    field(QStringLiteral("screenshot_format"), settings.screenshotFormat, isImageFormat);
    field(QStringLiteral("stat_dialog_pos"), settings.statDialogPosition, isWindowPosition);
    field(QStringLiteral("stat_dialog_size"), settings.statDialogSize, isWindowSize);
    field(QStringLiteral("time_window"), settings.timeWindowMs, isTimeWindow);
}

} // namespace

SaccadePlotLook::SaccadePlotLook()
    : eyeSignal(storedPen(Qt::black, 1, Qt::SolidLine))
    , saccadeLeft(storedPen(Qt::red, 2, Qt::SolidLine))
    , saccadeRight(storedPen(Qt::green, 2, Qt::SolidLine))
    , saccadeSelected(storedPen(Qt::blue, 4, Qt::SolidLine))
    , blinks(storedPen(Qt::magenta, 2, Qt::DashLine))
{
}

CurvePlotScheme curvePlotScheme(const SaccadePlotLook& look)
{
    CurvePlotScheme scheme;
    scheme.setTitle(CurvePlotScheme::titleFontOf(look.font));
    scheme.setAxis(look.font);
    scheme.setAxisTitle(look.font);
    scheme.setBkg(look.background);
    // Only the colours are the user's; how the lines are drawn is the chart's own.
    QPen grid = scheme.grid();
    grid.setColor(look.grid);
    scheme.setGrid(grid);
    QPen border = scheme.border();
    border.setColor(look.foreground);
    scheme.setBorder(border);
    return scheme;
}

SaccadeCenterSettings::SaccadeCenterSettings()
    : statDialogPosition(centredOnScreen(statDialogSize))
{
}

QString SaccadeCenterSettings::section()
{
    return QStringLiteral("SACCADE_CENTER");
}

void SaccadeCenterSettings::load(const IniStore& store)
{
    walk(*this, Reader(store));
    screenshotFormat = mainImageFormat(screenshotFormat);
}

void SaccadeCenterSettings::save(IniStore& store) const
{
    walk(*this, Writer(store));
}
