#include "numericcases.h"

#include "detectorcases.h"
#include "editcases.h"
#include "filtercases.h"
#include "objects.h"
#include "report.h"
#include "statisticscases.h"

#include <QJsonArray>

#include <utility>

namespace
{

/// Every family that the tree serves so far.
constexpr const NumericFamily& (*Families[])() = {
    detectorRoutines,
    editRoutines,
    filterRoutines,
    statisticsRoutines,
};

const NumericRoutine* findRoutine(const QString& name)
{
    for (const auto family : Families) {
        for (const NumericRoutine& routine : family()) {
            if (name == QLatin1String(routine.name))
                return &routine;
        }
    }
    return nullptr;
}

Verdict checkCall(const NumericRoutine& routine, const QJsonObject& call, const QJsonValue& rule,
                  const QString& folder, NumericCase& ofCase)
{
    const QJsonObject args = withFiles(call.value(QLatin1String("args")), folder).toObject();
    const QJsonValue wanted = withFiles(call.value(QLatin1String("expect")), folder);
    return Comparison(rule, args).compare(wanted, routine.answer(CallArgs(args), ofCase));
}

} // namespace

NumericCase::NumericCase(QString folder, QJsonObject content)
    : m_folder(std::move(folder))
    , m_content(std::move(content))
{
}

CallArgs NumericCase::object(const char* name) const
{
    const QString key = QLatin1String(name);
    const QJsonValue member = m_content.value(key);
    return CallArgs(QJsonObject{{key, withFiles(member, m_folder)}}).object(name);
}

Answer NumericRoutine::answer(const CallArgs& callArgs, NumericCase& ofCase) const
{
    if (const auto* const inCase = std::get_if<InCase>(&run))
        return (*inCase)(callArgs, ofCase);
    return std::get<Alone>(run)(callArgs);
}

void runNumericCase(const QString& folder, const QJsonObject& content, Report& report)
{
    const QJsonValue calls = content.value(QLatin1String("calls"));
    if (!calls.isArray()) {
        report.fail(QStringLiteral("calls"), QStringLiteral("an array of calls"), shown(calls));
        return;
    }
    const QJsonValue rule = content.value(QLatin1String("compare"));
    const QJsonArray array = calls.toArray();
    NumericCase ofCase(folder, content);
    for (int i = 0; i < array.size(); ++i) {
        const QJsonObject call = array[i].toObject();
        const QJsonValue name = call.value(QLatin1String("routine"));
        if (!name.isString()) {
            report.fail(QStringLiteral("calls[%1]").arg(i), QStringLiteral("a routine"), shown(array[i]));
            continue;
        }
        const QString unit = QStringLiteral("calls[%1] %2").arg(i).arg(name.toString());
        const NumericRoutine* const routine = findRoutine(name.toString());
        if (routine && hasOnlyKeys(call.value(QLatin1String("args")).toObject(), routine->args))
            report.check(unit, [&] { return checkCall(*routine, call, rule, folder, ofCase); });
        else
            report.skip(unit);
    }
}
