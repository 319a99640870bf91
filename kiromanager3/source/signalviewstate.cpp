#include "signalviewstate.h"

#include "kiroheader.h"

#include <QFileInfo>

#include <cmath>

namespace
{

/// A recording has up to 255 signals of 6 keys; where more than this stand, something else wrote them.
constexpr std::size_t MostEntries = 4096;

const QString CountKey = QStringLiteral("signal_count");
const QString VideoFileKey = QStringLiteral("video_filename");
const QString VideoKiroTimeKey = QStringLiteral("video_kiro_time_msec");
const QString VideoVideoTimeKey = QStringLiteral("video_video_time_msec");

QString keyOf(int signalIndex, const char* field)
{
    return QStringLiteral("sig%1_%2").arg(signalIndex).arg(QLatin1String(field));
}

bool isScaleType(int type)
{
    return type >= Plot::Automatic && type <= Plot::Tracing;
}

bool areLimits(double min, double max)
{
    return std::isfinite(min) && std::isfinite(max) && std::isfinite(max - min);
}

bool isUsefulRange(double range)
{
    return std::isfinite(range) && range > 0.0;
}

void readView(const IniStore& store, const QString& section, int index, SignalView& view)
{
    const int type = store.intValue(section, keyOf(index, "scaletype"), view.scaleType);
    if (isScaleType(type))
        view.scaleType = static_cast<Plot::ScaleType>(type);
    view.show = store.boolValue(section, keyOf(index, "show"), true);
    view.useCalib = store.boolValue(section, keyOf(index, "use_calib"), view.useCalib);
    const double min = store.doubleValue(section, keyOf(index, "scalemin"), view.scaleMin);
    const double max = store.doubleValue(section, keyOf(index, "scalemax"), view.scaleMax);
    if (areLimits(min, max)) {
        view.scaleMin = min;
        view.scaleMax = max;
    }
    const double range = store.doubleValue(section, keyOf(index, "sig_stat_range"), view.usefulRange);
    view.usefulRange = isUsefulRange(range) ? range : SignalView::NoUsefulRange;
}

/// Into the store's current section.
void writeView(IniStore& store, int index, const SignalView& view)
{
    store.setInt(keyOf(index, "scaletype"), view.scaleType);
    store.setBool(keyOf(index, "show"), view.show);
    store.setBool(keyOf(index, "use_calib"), view.useCalib);
    store.setDouble(keyOf(index, "scalemin"), view.scaleMin);
    store.setDouble(keyOf(index, "scalemax"), view.scaleMax);
    if (isUsefulRange(view.usefulRange))
        store.setDouble(keyOf(index, "sig_stat_range"), view.usefulRange);
}

/// Replaces the section, and the current one by it.
void writeState(IniStore& store, const QString& section, const SignalViewState& state)
{
    store.removeSection(section);
    store.setSection(section);
    store.removeSection(QString()); // left where the section was the current one
    store.setInt(CountKey, state.views.size());
    for (int i = 0; i < state.views.size(); ++i)
        writeView(store, i, state.views[i]);
    store.setValue(VideoFileKey, state.videoFileName);
    store.setInt64(VideoKiroTimeKey, state.videoKiroTime);
    store.setInt64(VideoVideoTimeKey, state.videoVideoTime);
}

/// Whether the section is that of a recording which is gone. Sections that name no full path are another
/// program part's, if one file holds these and the settings.
bool isOfLostFile(const QString& section)
{
    const QFileInfo file(section);
    return file.isAbsolute() && !file.exists();
}

QString sectionOf(const QString& dataFile)
{
    return QFileInfo(dataFile).absoluteFilePath();
}

} // namespace

SignalView viewOf(const Plot& plot, double usefulRange)
{
    return {plot.scaleType, plot.showPlot(), plot.useCalib, plot.scaleMin, plot.scaleMax, usefulRange};
}

void applyView(const SignalView& view, Plot& plot)
{
    plot.setShowPlot(view.show);
    plot.setScaleType(view.scaleType);
    if (view.scaleType == Plot::Fixed)
        plot.setScale(view.scaleMin, view.scaleMax);
    else if (view.scaleType == Plot::Tracing)
        plot.setScale(0.0, view.scaleMax - view.scaleMin);
    plot.useCalib = view.useCalib;
}

bool SignalViewStore::load(const QString& dataFile, SignalViewState& state)
{
    openAtFirstUse();
    const QString section = sectionOf(dataFile);
    if (!m_store.hasKey(section, CountKey) || m_store.entries(section).size() > MostEntries ||
        m_store.intValue(section, CountKey, 0) != state.views.size())
        return false;
    for (int i = 0; i < state.views.size(); ++i)
        readView(m_store, section, i, state.views[i]);
    state.videoFileName = m_store.value(section, VideoFileKey, QString());
    // Only times of 32 bits come back.
    state.videoKiroTime = m_store.intValue(section, VideoKiroTimeKey, 0);
    state.videoVideoTime = m_store.intValue(section, VideoVideoTimeKey, 0);
    return true;
}

bool SignalViewStore::save(const QString& dataFile, const SignalViewState& state)
{
    openAtFirstUse();
    const QString section = sectionOf(dataFile);
    writeState(m_store, section, state);
    // Nobody means a recording to become a list of settings.
    if (m_path.isEmpty() || KiroHeader().load(m_path))
        return false;
    IniStore present;
    const QFileInfo file(m_path);
    if (!present.load(m_path)) {
        // What cannot be read must not be replaced.
        if (file.exists() && file.size() > 0)
            return false;
        present = m_store;
    }
    for (const QString& purged : m_purged) {
        if (isOfLostFile(purged))
            present.removeSection(purged);
    }
    writeState(present, section, state);
    return present.hasSection(section) && present.saveAs(m_path);
}

void SignalViewStore::openAtFirstUse()
{
    if (m_opened)
        return;
    m_opened = true;
    m_store.load(m_path);
    const QStringList sections = m_store.sections();
    for (const QString& section : sections) {
        if (isOfLostFile(section)) {
            m_store.removeSection(section);
            m_purged << section;
        }
    }
}
