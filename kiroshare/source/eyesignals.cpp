#include "eyesignals.h"

#include "kiroheader.h"
#include "kiroreader.h"
#include "kirosaccheader.h"
#include "kiroutils.h"
#include "samplefilters.h"

#include <QCoreApplication>

#include <new>

namespace
{

struct NamedAxis
{
    const char* name;
    EyeAxis axis;
};

/// Names of recordings of one eye.
constexpr NamedAxis OneEyeNames[] = {
    {"eye position", EyeAxis::RightHorizontal},
    {"eye movement - horizontal", EyeAxis::RightHorizontal},
    {"eye movement - vertical", EyeAxis::RightVertical},
};

/// Names of recordings that tell the eyes apart.
constexpr NamedAxis TwoEyesNames[] = {
    {"right eye - horizontal", EyeAxis::RightHorizontal},
    {"left eye - horizontal", EyeAxis::LeftHorizontal},
    {"right eye - vertical", EyeAxis::RightVertical},
    {"left eye - vertical", EyeAxis::LeftVertical},
};

enum class NameMatch { Whole, Beginning };

/// The first signal of each name.
template <std::size_t Count>
EyeSignals findByNames(const KiroHeader& header, const NamedAxis (&names)[Count],
                       NameMatch match = NameMatch::Whole)
{
    EyeSignals found;
    for (int i = 0; i < header.signalCount(); ++i) {
        const QString name =
            header.signalTable()[static_cast<std::size_t>(i)].fullName.toQString().simplified();
        for (const NamedAxis& known : names) {
            const QLatin1String knownName(known.name);
            const bool matches = match == NameMatch::Whole ? name == knownName : name.startsWith(knownName);
            if (matches && !found[known.axis].isSet())
                found[known.axis].signalIndex = i;
        }
    }
    return found;
}

QString translated(const char* text)
{
    return QCoreApplication::translate("EyeSignals", text);
}

QString readFailure(EyeAxis axis)
{
    switch (axis) {
    case EyeAxis::RightHorizontal:
        return translated(
            QT_TRANSLATE_NOOP("EyeSignals", "Error while loading horizontal eye position samples!"));
    case EyeAxis::RightVertical:
        return translated(
            QT_TRANSLATE_NOOP("EyeSignals", "Error while loading vertical eye position samples!"));
    case EyeAxis::LeftHorizontal:
        return translated(
            QT_TRANSLATE_NOOP("EyeSignals", "Error while loading horizontal left eye position samples!"));
    case EyeAxis::LeftVertical:
        break;
    }
    return translated(
        QT_TRANSLATE_NOOP("EyeSignals", "Error while loading vertical left eye position samples!"));
}

/// One loading, signal by signal.
class EyeLoader
{
public:
    EyeLoader(const KiroString& path, const KiroHeader& header, const EyeLoadOptions& options,
              EyeSignals& eyes, QString& error)
        : m_path(path)
        , m_header(header)
        , m_options(options)
        , m_eyes(eyes)
        , m_error(error)
    {
    }

    bool load();

private:
    bool read(EyeAxis axis);
    bool readAll();
    bool calibrate(EyeSignal& signal);
    bool convert(EyeSignal& signal, const KiroSignal& descriptor);

    const KiroString& m_path;
    const KiroHeader& m_header;
    const EyeLoadOptions& m_options;
    EyeSignals& m_eyes;
    QString& m_error;
};

bool EyeLoader::read(EyeAxis axis)
{
    EyeSignal& signal = m_eyes[axis];
    if (KiroReader::readSignal(m_path, signal.signalIndex, signal.position, !m_options.storedCalibration))
        return true;
    m_error = readFailure(axis);
    return false;
}

bool EyeLoader::readAll()
{
    if (!read(EyeAxis::RightHorizontal))
        return false;
    m_eyes.detectionType = 1;
    if (m_eyes[EyeAxis::RightVertical].isSet()) {
        if (!read(EyeAxis::RightVertical))
            return false;
        m_eyes.detectionType = 2;
    }
    if (m_eyes[EyeAxis::LeftHorizontal].isSet() && m_eyes[EyeAxis::LeftVertical].isSet()) {
        if (!read(EyeAxis::LeftHorizontal) || !read(EyeAxis::LeftVertical))
            return false;
        m_eyes.detectionType = 3;
    }
    return true;
}

/// Makes positions degrees and velocities degrees per second, of a signal whose samples are raw or that is
/// calibrated already.
bool EyeLoader::calibrate(EyeSignal& signal)
{
    if (m_options.velocities) {
        signal.velocity.reserve(signal.position.size());
        adviseLargePages(signal.velocity.data(), signal.velocity.capacity() * sizeof(double));
        signal.velocity.assign(signal.position.size(), 0.0);
        velocitySavitzkyGolay11(signal.position, signal.velocity, true);
    }
    KiroSignal descriptor;
    m_header.getSignal(signal.signalIndex, descriptor);
    if (m_options.storedCalibration || !descriptor.calibrated)
        return convert(signal, descriptor);
    for (double& value : signal.velocity)
        value *= m_options.frequency;
    signal.factor = descriptor.calibrationFactor;
    signal.offset = descriptor.calibrationOffset;
    return true;
}

bool EyeLoader::convert(EyeSignal& signal, const KiroSignal& descriptor)
{
    if (!m_options.storedCalibration) {
        const std::optional<double> factor =
            m_options.askFactor ? m_options.askFactor(descriptor) : std::nullopt;
        if (!factor) {
            m_error = translated(
                QT_TRANSLATE_NOOP("EyeSignals", "Calibration factor not entered. Cannot proceed."));
            return false;
        }
        signal.factor = *factor;
        signal.offset = 0.0;
    }
    for (double& value : signal.position)
        value = (value - signal.offset) / signal.factor;
    for (double& value : signal.velocity)
        value = value * m_options.frequency / signal.factor;
    return true;
}

bool EyeLoader::load()
{
    m_eyes.clearSamples();
    if (!readAll())
        return false;
    for (EyeSignal& signal : m_eyes.axes) {
        if (!signal.position.empty() && !calibrate(signal))
            return false;
    }
    return true;
}

} // namespace

std::int32_t saccadeFileRole(EyeAxis axis)
{
    switch (axis) {
    case EyeAxis::RightHorizontal:
        return KiroSaccHeader::RightHorizontal;
    case EyeAxis::RightVertical:
        return KiroSaccHeader::RightVertical;
    case EyeAxis::LeftHorizontal:
        return KiroSaccHeader::LeftHorizontal;
    case EyeAxis::LeftVertical:
        break;
    }
    return KiroSaccHeader::LeftVertical;
}

bool usesAxis(int detectionType, EyeAxis axis)
{
    switch (axis) {
    case EyeAxis::RightHorizontal:
        return true;
    case EyeAxis::RightVertical:
        return detectionType >= 2;
    case EyeAxis::LeftHorizontal:
    case EyeAxis::LeftVertical:
        break;
    }
    return detectionType >= 3;
}

void EyeSignals::clearSamples()
{
    for (EyeSignal& signal : axes) {
        signal.position = {};
        signal.velocity = {};
    }
    detectionType = 0;
}

EyeSignals findEyeSignals(const KiroHeader& header)
{
    const EyeSignals oneEye = findByNames(header, OneEyeNames);
    return oneEye[EyeAxis::RightHorizontal].isSet() ? oneEye : findByNames(header, TwoEyesNames);
}

EyeSignals suggestEyeSignals(const KiroHeader& header)
{
    const EyeSignals found = findEyeSignals(header);
    if (found[EyeAxis::RightHorizontal].isSet())
        return found;
    const EyeSignals oneEye = findByNames(header, OneEyeNames, NameMatch::Beginning);
    return oneEye[EyeAxis::RightHorizontal].isSet() ? oneEye
                                                    : findByNames(header, TwoEyesNames, NameMatch::Beginning);
}

std::optional<EyeSignals> chooseEyeSignals(const KiroHeader& header)
{
    EyeSignals found = findEyeSignals(header);
    if (found[EyeAxis::RightHorizontal].isSet())
        return found;
    if (header.signalCount() != 1)
        return std::nullopt;
    found.clear();
    found[EyeAxis::RightHorizontal].signalIndex = 0;
    return found;
}

bool loadEyeSignals(const KiroString& path, const KiroHeader& header, const EyeLoadOptions& options,
                    EyeSignals& eyes, QString& error)
{
    error.clear();
    try {
        if (EyeLoader(path, header, options, eyes, error).load())
            return true;
    } catch (const std::bad_alloc&) {
        error = translated(QT_TRANSLATE_NOOP(
            "EyeSignals",
            "There is not enough memory for the eye signals. Close other programs and try again."));
    }
    eyes.clearSamples();
    return false;
}
