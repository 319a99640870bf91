#include "saccadetable.h"

#include <stdexcept>
#include <string>

namespace
{

Answer eyeRow(const KiroSaccadeEye& eye)
{
    return Answer::List{
        eye.start,         eye.end,          eye.duration,     eye.fixation,         eye.reserved,
        eye.amplitude,     eye.peakVelocity, eye.meanVelocity, eye.peakAcceleration, eye.velocityPerDuration,
        eye.amplitudeHorz, eye.startHorz,    eye.endHorz,      eye.amplitudeVert,    eye.startVert,
        eye.endVert};
}

Answer eyeRows(const std::vector<KiroSaccade>& saccades, KiroSaccadeEye KiroSaccade::*block)
{
    Answer::List rows;
    for (const KiroSaccade& saccade : saccades)
        rows.push_back(eyeRow(saccade.*block));
    return rows;
}

const Answer EyeFields = std::vector<std::string>{
    "start",         "end",          "duration",     "fixation",         "reserved",
    "amplitude",     "peakVelocity", "meanVelocity", "peakAcceleration", "velocityPerDuration",
    "amplitudeHorz", "startHorz",    "endHorz",      "amplitudeVert",    "startVert",
    "endVert"};

bool isZero(const KiroSaccadeEye& eye)
{
    return eye.start == 0 && eye.end == 0 && eye.duration == 0 && eye.amplitude == 0.0 &&
           eye.startHorz == 0.0 && eye.peakVelocity == 0.0;
}

} // namespace

Answer saccadeTable(const std::vector<KiroSaccade>& saccades, bool bothEyes)
{
    std::vector<int> valid;
    for (const KiroSaccade& saccade : saccades) {
        valid.push_back(saccade.valid ? 1 : 0);
        if (!bothEyes && !(isZero(saccade.left) && isZero(saccade.right)))
            throw std::runtime_error("the block of an eye is filled");
    }
    Answer::Fields table = {{QStringLiteral("fields"), EyeFields},
                            {QStringLiteral("count"), saccades.size()},
                            {QStringLiteral("valid"), valid},
                            {QStringLiteral("main"), eyeRows(saccades, &KiroSaccade::main)}};
    if (bothEyes) {
        table.emplace_back(QStringLiteral("left"), eyeRows(saccades, &KiroSaccade::left));
        table.emplace_back(QStringLiteral("right"), eyeRows(saccades, &KiroSaccade::right));
    }
    return table;
}
