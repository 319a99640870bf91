#include "detectorcases.h"

#include "detectionrun.h"
#include "eyesignals.h"
#include "kirosaccadedetector.h"
#include "saccadepairs.h"
#include "saccadetable.h"

#include <QJsonArray>

#include <cstdint>

namespace
{

SaccadeDetectionParams saccadeParams(const CallArgs& args)
{
    const CallArgs object = args.object("params");
    SaccadeDetectionParams params;
    params.local = object.integer("local");
    params.gap = object.integer("gap");
    params.minTime = object.integer("minTime");
    params.maxTime = object.integer("maxTime");
    params.initVel = object.number("initVel");
    params.minSpeed = object.number("minSpeed");
    params.minSlope = object.number("minSlope");
    params.minAmp = object.number("minAmp");
    params.maxAmp = object.number("maxAmp");
    return params;
}

BlinkDetectionParams blinkParams(const CallArgs& args, const char* name)
{
    const CallArgs object = args.object(name);
    BlinkDetectionParams params;
    params.peakVel1 = object.number("peakVel1");
    params.peakVel2 = object.number("peakVel2");
    params.minVel = object.number("minVel");
    params.maxPeaksDistance = object.integer("maxPeaksDistance");
    params.minAmplitude = object.number("minAmplitude");
    params.minAmplitudeRelation = object.number("minAmplitudeRelation");
    params.maxAmplitudeRelation = object.number("maxAmplitudeRelation");
    params.minDuration = object.integer("minDuration");
    params.maxDuration = object.integer("maxDuration");
    return params;
}

Answer blinkTable(const std::vector<KiroBlink>& blinks)
{
    Answer::List rows;
    for (const KiroBlink& blink : blinks)
        rows.push_back(Answer::List{blink.start, blink.end, blink.duration, blink.peaksDistance, blink.amp1,
                                    blink.amp2, blink.ampRelation});
    return Answer::Fields{
        {QStringLiteral("fields"), std::vector<std::string>{"start", "end", "duration", "peaksDistance",
                                                            "amp1", "amp2", "ampRelation"}},
        {QStringLiteral("count"), blinks.size()},
        {QStringLiteral("rows"), rows}};
}

Answer withBlinks(const std::vector<KiroSaccade>& saccades, bool bothEyes,
                  const std::vector<KiroBlink>& blinks)
{
    return Answer::Fields{{QStringLiteral("saccades"), saccadeTable(saccades, bothEyes)},
                          {QStringLiteral("blinks"), blinkTable(blinks)}};
}

Answer oneSignal(const CallArgs& args)
{
    const auto saccades = KiroSaccadeDetector().detectOneSignal(saccadeParams(args), args.numbers("x"));
    return Answer::Fields{{QStringLiteral("saccades"), saccadeTable(saccades, false)}};
}

Answer monocular(const CallArgs& args)
{
    std::vector<KiroBlink> blinks;
    const auto saccades = KiroSaccadeDetector().detectMonocular(
        saccadeParams(args), blinkParams(args, "blinkParams"), args.numbers("horizontal"),
        args.numbers("vertical"), blinks, args.flag("blinksHorizontal"));
    return withBlinks(saccades, false, blinks);
}

Answer binocular(const CallArgs& args)
{
    std::vector<KiroBlink> blinks;
    const auto saccades = KiroSaccadeDetector().detectBinocular(
        saccadeParams(args), blinkParams(args, "blinkParams"), args.numbers("leftHorizontal"),
        args.numbers("leftVertical"), args.numbers("rightHorizontal"), args.numbers("rightVertical"), blinks,
        args.flag("blinksHorizontal"));
    return withBlinks(saccades, true, blinks);
}

Answer blinksOnly(const CallArgs& args)
{
    KiroSaccadeDetector detector;
    detector.blinkParams = blinkParams(args, "params");
    return Answer::Fields{{QStringLiteral("blinks"), blinkTable(detector.detectBlinks(args.numbers("x")))}};
}

/// Parameters and results per second; one signal.
Answer scaled(const CallArgs& args)
{
    DetectionSettings settings;
    settings.saccades = saccadeParams(args);
    EyeSignals eyes;
    eyes[EyeAxis::RightHorizontal].position = args.numbers("x");
    const auto found = runDetection(args.integer("type"), args.number("frequency"), settings, eyes);
    return Answer::Fields{{QStringLiteral("saccades"), saccadeTable(found.saccades, false)}};
}

KiroSaccadeEye stretch(const QJsonValue& start, const QJsonValue& end)
{
    KiroSaccadeEye eye;
    eye.start = start.toInt();
    eye.end = end.toInt();
    eye.duration = eye.end - eye.start + 1;
    return eye;
}

std::vector<KiroSaccade> oneEye(const QJsonArray& stretches)
{
    std::vector<KiroSaccade> saccades;
    for (const QJsonValue& ends : stretches) {
        KiroSaccade saccade;
        saccade.main = stretch(ends[0], ends[1]);
        saccades.push_back(saccade);
    }
    return saccades;
}

Answer paired(const CallArgs& args)
{
    Answer::List starts;
    for (const KiroSaccade& pair : pairEyes(oneEye(args.array("left")), oneEye(args.array("right"))))
        starts.push_back(Answer::List{pair.left.start, pair.right.start});
    return Answer::Fields{{QStringLiteral("pairs"), starts}};
}

Answer keptPairs(const CallArgs& args)
{
    std::vector<KiroSaccade> pairs;
    for (const QJsonValue& ends : args.array("pairs")) {
        KiroSaccade pair;
        pair.left = stretch(ends[0], ends[1]);
        pair.right = stretch(ends[2], ends[3]);
        pair.main.reserved = static_cast<std::int32_t>(pairs.size()); // its position
        pairs.push_back(pair);
    }
    std::vector<KiroBlink> blinks;
    for (const QJsonValue& ends : args.array("blinks")) {
        KiroBlink blink;
        blink.start = ends[0].toInt();
        blink.end = ends[1].toInt();
        blinks.push_back(blink);
    }
    dropPairsTouchingBlinks(pairs, blinks);
    std::vector<int> kept;
    for (const KiroSaccade& pair : pairs)
        kept.push_back(pair.main.reserved);
    return Answer::Fields{{QStringLiteral("kept"), kept}};
}

} // namespace

const NumericFamily& detectorRoutines()
{
    static const NumericFamily routines = {
        {"detectOneSignal", "frequency params x", oneSignal},
        {"detectMonocular", "frequency params blinkParams horizontal vertical blinksHorizontal", monocular},
        {"detectBinocular",
         "frequency params blinkParams leftHorizontal leftVertical rightHorizontal rightVertical "
         "blinksHorizontal",
         binocular},
        {"detectBlinks", "params x", blinksOnly},
        {"runDetection", "type frequency params x", scaled},
        {"pairEyes", "left right", paired},
        {"dropPairsTouchingBlinks", "pairs blinks", keptPairs},
    };
    return routines;
}
