#include "objects.h"

#include "report.h"

#include <QJsonArray>
#include <QStringList>

#include <algorithm>
#include <stdexcept>

bool isBookkeeping(const QString& key)
{
    static const QStringList keys = {QStringLiteral("kind"),     QStringLiteral("check"),
                                     QStringLiteral("file"),     QStringLiteral("fileSize"),
                                     QStringLiteral("requires"), QStringLiteral("sha256")};
    return keys.contains(key);
}

bool hasOnlyKeys(const QJsonObject& object, const char* keys)
{
    const QStringList known = QString::fromLatin1(keys).split(QLatin1Char(' '));
    const QStringList present = object.keys();
    return std::all_of(present.begin(), present.end(),
                       [&known](const QString& key) { return known.contains(key); });
}

int integerOf(const QJsonValue& value)
{
    const int integer = value.toInt();
    if (!value.isDouble() || value.toDouble() != integer)
        throw std::runtime_error("not a 32-bit integer: " + shown(value).toStdString());
    return integer;
}

void runCalls(const QString& name, const QJsonValue& calls, const char* keys,
              const std::function<Verdict(const QJsonObject& call)>& check, Report& report)
{
    if (!calls.isArray()) {
        report.fail(name, QStringLiteral("an array of calls"), shown(calls));
        return;
    }
    const QJsonArray array = calls.toArray();
    for (int i = 0; i < array.size(); ++i) {
        const QString unit = QStringLiteral("%1[%2]").arg(name).arg(i);
        const QJsonObject call = array[i].toObject();
        if (hasOnlyKeys(call, keys))
            report.check(unit, [&] { return check(call); });
        else
            report.skip(unit);
    }
}
