#include "editcases.h"

#include "eyesignals.h"
#include "saccadeedit.h"
#include "saccadetable.h"

#include <utility>

namespace
{

std::vector<double> slot(const CallArgs& eyeSlots, const char* name)
{
    return eyeSlots.has(name) ? eyeSlots.numbers(name) : std::vector<double>();
}

/// What the calls of a case work on.
struct EditedList
{
    explicit EditedList(const NumericCase& ofCase)
    {
        const CallArgs eyeSlots = ofCase.object("slots");
        eyes[EyeAxis::RightHorizontal].position = slot(eyeSlots, "rightHorz");
        eyes[EyeAxis::RightHorizontal].velocity = slot(eyeSlots, "velRightHorz");
        eyes[EyeAxis::RightVertical].position = slot(eyeSlots, "rightVert");
        eyes[EyeAxis::LeftHorizontal].position = slot(eyeSlots, "leftHorz");
        eyes[EyeAxis::LeftHorizontal].velocity = slot(eyeSlots, "velLeftHorz");
        eyes[EyeAxis::LeftVertical].position = slot(eyeSlots, "leftVert");
    }

    /// Of an empty list no blocks of the eyes are listed.
    Answer table(int detectionType) const
    {
        const bool bothEyes = usesAxis(detectionType, EyeAxis::LeftHorizontal) && !saccades.isEmpty();
        return saccadeTable({saccades.begin(), saccades.end()}, bothEyes);
    }

    EyeSignals eyes;
    QList<KiroSaccade> saccades;
};

/// The word of the corpus for the outcome, and the number beside it.
std::pair<Answer, Answer> outcomeOf(const SaccadeAddition& addition)
{
    switch (addition.outcome) {
    case SaccadeAddition::Outcome::Added:
        return {"ok", addition.index};
    case SaccadeAddition::Outcome::TooShort:
        return {"short", addition.shortest};
    case SaccadeAddition::Outcome::Overlaps:
        return {"overlap", nullptr};
    }
    return {nullptr, nullptr};
}

Answer added(const CallArgs& args, NumericCase& ofCase)
{
    auto& edited = ofCase.kept<EditedList>();
    const int type = args.integer("type");
    const EditSource source{edited.eyes, type, args.number("frequency"), args.integer("minTime")};
    const auto [result, value] =
        outcomeOf(addSaccade(edited.saccades, source, args.number("t0"), args.number("t1")));
    return Answer::Fields{{QStringLiteral("result"), result},
                          {QStringLiteral("value"), value},
                          {QStringLiteral("list"), edited.table(type)}};
}

Answer removed(const CallArgs& args, NumericCase& ofCase)
{
    auto& edited = ofCase.kept<EditedList>();
    const int type = args.integer("type");
    const int current = removeSaccade(edited.saccades, args.integer("index"), type);
    return Answer::Fields{{QStringLiteral("current"), current}, {QStringLiteral("list"), edited.table(type)}};
}

} // namespace

const NumericFamily& editRoutines()
{
    static const NumericFamily routines = {
        {"addSaccade", "t0 t1 frequency minTime type", added},
        {"removeSaccade", "index type", removed},
    };
    return routines;
}
