#pragma once

#include "inistore.h"
#include "plot.h"

#include <QString>
#include <QStringList>
#include <QVector>

/// How a file shows one of its signals.
struct SignalView
{
    static constexpr double NoUsefulRange = -1.0;

    Plot::ScaleType scaleType = Plot::Automatic;
    bool show = true;
    bool useCalib = false;
    double scaleMin = 0.0; ///< of the strip, in raw units whatever `useCalib` says
    double scaleMax = 1.0;
    /// "Useful signal range" of the statistics, in raw units, above 0; NoUsefulRange if the user gave none.
    double usefulRange = NoUsefulRange;
};
Q_DECLARE_TYPEINFO(SignalView, Q_MOVABLE_TYPE);

/// How a file was shown last: what the signals browser keeps of each file in the signals file.
struct SignalViewState
{
    QVector<SignalView> views; ///< one for each signal
    QString videoFileName;     ///< empty for no video
    qint64 videoKiroTime = 0;  ///< milliseconds of the recording that are the same moment as
    qint64 videoVideoTime = 0; ///< these milliseconds of the video
};

/// What a strip shows; `usefulRange`, which no strip knows, is passed on.
SignalView viewOf(const Plot& plot, double usefulRange);
/// Shows a strip so. A fixed scale gets the limits, a tracing one their distance as its span; the limits of
/// an automatic one are those of its samples.
void applyView(const SignalView& view, Plot& plot);

/// The signals file: one section for each recording, named by the full path of that.
///
/// The file is read when it is first needed, and sections of recordings that are no longer there are then
/// taken out; the file itself changes with the next save(). Sections that other windows save meanwhile stay
/// as they are there. Nothing throws.
class SignalViewStore
{
public:
    /// `path` is that of the signals file, which need not exist.
    explicit SignalViewStore(const QString& path)
        : m_path(path)
    {
    }

    /// Reads how `dataFile` was shown. False, with `state` as it was, if its section is absent, is of another
    /// number of signals than `state`, or has more keys than any recording's. `state` comes in with a view
    /// for each signal, as it is shown now. What the section lacks keeps its value, but for signals, which
    /// are shown, and the video. So does what cannot be: a scale type that there is not, limits of which one
    /// or the distance is no finite number. A useful range that is not above 0 is none.
    bool load(const QString& dataFile, SignalViewState& state);
    /// Replaces the section. False, with the file left alone, if it is there and cannot be read, is a
    /// recording, or cannot be replaced, if it has no name, or if `dataFile` has a line feed in its name;
    /// load() gives `state` back all the same, but for such a name.
    bool save(const QString& dataFile, const SignalViewState& state);

private:
    void openAtFirstUse();

    QString m_path;
    bool m_opened = false;
    IniStore m_store;
    QStringList m_purged; ///< sections taken out
};
