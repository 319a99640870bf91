#include "coretextcases.h"

#include "corpus.h"
#include "inicases.h"
#include "kirostring.h"
#include "objects.h"
#include "report.h"

#include <QJsonArray>

#include <stdexcept>

namespace
{

KiroString textOf(const QJsonValue& text)
{
    return KiroString::fromBytes(bytesOf(text));
}

Verdict checkToInt(const QJsonObject& call)
{
    bool ok = false;
    const int value = textOf(call.value(QLatin1String("text"))).toInt(&ok);
    Verdict verdict =
        at(QStringLiteral(".value"), compareNumber(call.value(QLatin1String("value")), toNumber(value)));
    append(verdict, at(QStringLiteral(".ok"), compareBool(call.value(QLatin1String("ok")), ok)));
    return verdict;
}

KiroString callArg(const QJsonObject& call)
{
    const KiroString pattern = textOf(call.value(QLatin1String("template")));
    const int width = integerOf(call.value(QLatin1String("width")));
    const std::string fill = bytesOf(call.value(QLatin1String("fill")));
    if (fill.size() != 1)
        throw std::runtime_error("fill is no single byte");
    const QJsonValue value = call.value(QLatin1String("value"));
    if (value.isString())
        return pattern.arg(textOf(value), width, fill.front());
    return pattern.arg(integerOf(value), width, integerOf(call.value(QLatin1String("base"))), fill.front());
}

Verdict checkArg(const QJsonObject& call)
{
    return at(QStringLiteral(".result"),
              compareText(call.value(QLatin1String("result")), callArg(call).bytes()));
}

} // namespace

void checkCoreText(const GoldenCase& golden, Report& report)
{
    for (auto field = golden.expected.begin(); field != golden.expected.end(); ++field) {
        if (isBookkeeping(field.key()))
            continue;
        if (field.key() == QLatin1String("toInt"))
            runCalls(field.key(), field.value(), "text value ok", checkToInt, report);
        else if (field.key() == QLatin1String("arg"))
            runCalls(field.key(), field.value(), "template value width base fill result", checkArg, report);
        else if (field.key() == QLatin1String("relativePaths"))
            runCalls(field.key(), field.value(), "base path relative", checkRelativePath, report);
        else
            report.skip(field.key());
    }
}
