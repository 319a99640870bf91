#include "eyechoice.h"

#include "commandline.h"
#include "eyesignals.h"
#include "kiroreader.h"
#include "openrecording.h"
#include "signalchoice.h"

#include <algorithm>

namespace
{

struct AxisOption
{
    const char* name;
    const char* what;
};

/// In the order of EyeAxes.
constexpr AxisOption AxisOptions[EyeAxisCount] = {
    {"right-h", "horizontal signal of the right eye"},
    {"right-v", "vertical signal of the right eye"},
    {"left-h", "horizontal signal of the left eye"},
    {"left-v", "vertical signal of the left eye"},
};

const AxisOption& optionOf(EyeAxis axis)
{
    return AxisOptions[static_cast<std::size_t>(axis)];
}

/// Puts the signals that the user gave into their places.
bool applyOptions(const CommandLine& line, const KiroReader& reader, EyeSignals& eyes, std::string& error)
{
    for (const EyeAxis axis : EyeAxes) {
        const char* const name = optionOf(axis).name;
        if (!line.isSet(name))
            continue;
        const std::optional<int> index = chooseSignal(reader, line.value(name), error);
        if (!index)
            return false;
        eyes[axis].signalIndex = *index;
    }
    return true;
}

std::string missingSignal(const KiroReader& reader, EyeAxis axis)
{
    return std::string("the ") + optionOf(axis).what + " cannot be told by the names of the signals of " +
           quoted(reader.fileName()) + ". Give --" + optionOf(axis).name + " SIGNAL. " +
           signalListHint(reader);
}

/// How many of the axes, in their order, must be there. Who names a signal of the left eye wants both eyes.
int neededCount(const CommandLine& line, int detectionType, const EyeSignals& eyes)
{
    const bool leftEye = (eyes[EyeAxis::LeftHorizontal].isSet() && eyes[EyeAxis::LeftVertical].isSet()) ||
                         line.isSet(optionOf(EyeAxis::LeftHorizontal).name) ||
                         line.isSet(optionOf(EyeAxis::LeftVertical).name);
    const bool bothEyes = detectionType == 3 || (detectionType == 0 && leftEye);
    return bothEyes ? EyeAxisCount : std::max(detectionType, 1);
}

} // namespace

void addEyeOptions(CommandLine& line)
{
    for (const AxisOption& option : AxisOptions)
        line.addOption(option.name, "SIGNAL", (std::string("The ") + option.what + '.').c_str());
}

EyeChoice chooseEyes(const CommandLine& line, const KiroReader& reader, int detectionType, EyeSignals& eyes,
                     std::string& error)
{
    eyes = chooseEyeSignals(reader.header()).value_or(EyeSignals());
    if (!applyOptions(line, reader, eyes, error))
        return EyeChoice::Wrong;
    const int needed = neededCount(line, detectionType, eyes);
    int position = 0;
    for (const EyeAxis axis : EyeAxes) {
        const bool isNeeded = position++ < needed;
        if (isNeeded && !eyes[axis].isSet()) {
            error = missingSignal(reader, axis);
            return EyeChoice::NotTold;
        }
        if (!isNeeded && detectionType != 0)
            eyes[axis] = EyeSignal();
    }
    return EyeChoice::Chosen;
}
