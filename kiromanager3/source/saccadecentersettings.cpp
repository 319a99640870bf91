#include "saccadecentersettings.h"

#include "detectionline.h"
#include "inistore.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStringList>

namespace
{

constexpr int FontSizeMost = 512; // of the font dialog
constexpr int PenWidthMost = 99;  // of the pen dialog
constexpr int WindowPixelsMost = 32767;
const QString JpegAlias = QStringLiteral("JPEG"); // the other name of "JPG"

/// A pen as the store gives one back.
QPen startPen(const QColor& color, int width, Qt::PenStyle style)
{
    return QPen(QBrush(color), width, style, Qt::SquareCap, Qt::BevelJoin);
}

QPoint centredOnScreen(const QSize& size)
{
    QRect window(QPoint(), size);
    if (const QScreen* const screen = QGuiApplication::primaryScreen())
        window.moveCenter(screen->availableGeometry().center());
    return window.topLeft();
}

bool anyBool(const bool& /*value*/)
{
    return true;
}

bool anyString(const QString& /*value*/)
{
    return true;
}

bool isColor(const QColor& color)
{
    return color.isValid();
}

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

bool isImageFormat(const QString& format)
{
    return QStringList{QStringLiteral("PNG"), QStringLiteral("JPG"), JpegAlias, QStringLiteral("BMP"),
                       QStringLiteral("XPM")}
        .contains(format);
}

bool isSeparator(const QString& text)
{
    return !text.isEmpty();
}

bool isPlotFont(const QFont& font)
{
    return font.pointSizeF() <= FontSizeMost && font.pixelSize() <= FontSizeMost;
}

bool isPlotPen(const QPen& pen)
{
    return pen.width() <= PenWidthMost && pen.style() != Qt::CustomDashLine;
}

bool isWindowSize(const QSize& size)
{
    return !size.isEmpty() && size.width() <= WindowPixelsMost && size.height() <= WindowPixelsMost;
}

bool isWindowPosition(const QPoint& position)
{
    return QRect(-WindowPixelsMost, -WindowPixelsMost, 2 * WindowPixelsMost, 2 * WindowPixelsMost)
        .contains(position);
}

/// Takes from the store what is there and passes.
class Reader
{
public:
    explicit Reader(const IniStore& store)
        : m_store(store)
    {
    }

    template <class Value>
    void operator()(const QString& key, Value& value, bool (*accepts)(const Value&)) const
    {
        const Value stored = read(key, value);
        if (accepts(stored))
            value = stored;
    }
    void operator()(const QString& key, SaccadeDetectionParams& params) const
    {
        readSaccadeLine(read(key, QString()), params);
    }
    void operator()(const QString& key, BlinkDetectionParams& params) const
    {
        readBlinkLine(read(key, QString()), params);
    }

private:
    bool read(const QString& key, bool old) const { return m_store.boolValue(m_section, key, old); }
    int read(const QString& key, int old) const { return m_store.intValue(m_section, key, old); }
    TimeUnit read(const QString& key, TimeUnit old) const { return TimeUnit(read(key, int(old))); }
    double read(const QString& key, double old) const { return m_store.doubleValue(m_section, key, old); }
    QString read(const QString& key, const QString& old) const { return m_store.value(m_section, key, old); }
    QColor read(const QString& key, const QColor& old) const
    {
        return m_store.colorValue(m_section, key, old);
    }
    QFont read(const QString& key, const QFont& old) const { return m_store.fontValue(m_section, key, old); }
    QPen read(const QString& key, const QPen& old) const { return m_store.penValue(m_section, key, old); }
    QPoint read(const QString& key, const QPoint& old) const
    {
        return m_store.pointValue(m_section, key, old);
    }
    QSize read(const QString& key, const QSize& old) const { return m_store.sizeValue(m_section, key, old); }

    const IniStore& m_store;
    const QString m_section = SaccadeCenterSettings::section();
};

/// Puts every value into the store.
class Writer
{
public:
    explicit Writer(IniStore& store)
        : m_store(store)
    {
    }

    template <class Value>
    void operator()(const QString& key, const Value& value, bool (* /*accepts*/)(const Value&)) const
    {
        write(key, value);
    }
    void operator()(const QString& key, const SaccadeDetectionParams& params) const
    {
        write(key, saccadeLine(params));
    }
    void operator()(const QString& key, const BlinkDetectionParams& params) const
    {
        write(key, blinkLine(params));
    }

private:
    void write(const QString& key, bool value) const { m_store.setBool(m_section, key, value); }
    void write(const QString& key, int value) const { m_store.setInt(m_section, key, value); }
    void write(const QString& key, TimeUnit value) const { write(key, int(value)); }
    void write(const QString& key, double value) const { m_store.setDouble(m_section, key, value); }
    void write(const QString& key, const QString& value) const { m_store.setValue(m_section, key, value); }
    void write(const QString& key, const QColor& value) const { m_store.setColor(m_section, key, value); }
    void write(const QString& key, const QFont& value) const { m_store.setFont(m_section, key, value); }
    void write(const QString& key, const QPen& value) const { m_store.setPen(m_section, key, value); }
    void write(const QString& key, const QPoint& value) const { m_store.setPoint(m_section, key, value); }
    void write(const QString& key, const QSize& value) const { m_store.setSize(m_section, key, value); }

    IniStore& m_store;
    const QString m_section = SaccadeCenterSettings::section();
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
    field(QStringLiteral("export_separator"), text.separator, isSeparator);
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
    : eyeSignal(startPen(Qt::black, 1, Qt::SolidLine))
    , saccadeLeft(startPen(Qt::red, 2, Qt::SolidLine))
    , saccadeRight(startPen(Qt::green, 2, Qt::SolidLine))
    , saccadeSelected(startPen(Qt::blue, 4, Qt::SolidLine))
    , blinks(startPen(Qt::magenta, 2, Qt::DashLine))
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
    if (screenshotFormat == JpegAlias)
        screenshotFormat = QStringLiteral("JPG");
}

void SaccadeCenterSettings::save(IniStore& store) const
{
    walk(*this, Writer(store));
}
