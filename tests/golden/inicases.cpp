#include "inicases.h"

#include "corpus.h"
#include "files.h"
#include "inistore.h"
#include "objects.h"
#include "report.h"
#include "roads.h"

#include <QJsonArray>
#include <QTemporaryDir>
#include <QTextCodec>

#include <stdexcept>

namespace
{

Verdict compareValue(const QJsonValue& wanted, const QJsonValue& found)
{
    if (wanted == found)
        return {};
    return {{QString(), shown(wanted), shown(found)}};
}

QJsonArray sectionsOf(const IniStore& store)
{
    QJsonArray result;
    const QStringList names = store.sections();
    for (const QString& name : names) {
        QJsonArray entries;
        for (const auto& [key, value] : store.entries(name))
            entries.append(QJsonArray{key, value});
        result.append(QJsonArray{name, entries});
    }
    return result;
}

/// The text as saveAs() leaves it in a file.
QString savedText(IniStore store)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("saved"));
    if (!store.saveAs(path))
        throw std::runtime_error("the text cannot be saved");
    return QString::fromUtf8(readWhole(path).value_or(QByteArray()));
}

Verdict checkText(const QJsonValue& wanted, const IniStore& store)
{
    return checkRoads({
        {"toString", [&] { return compareValue(wanted, store.toString()); }},
        {"saveAs", [&] { return compareValue(wanted, savedText(store)); }},
    });
}

QVector<int> integersOf(const QJsonValue& array)
{
    QVector<int> result;
    const QJsonArray numbers = array.toArray();
    for (const QJsonValue& number : numbers)
        result << integerOf(number);
    return result;
}

/// The numbers of a list that must have `count` of them.
QVector<int> integersOf(const QJsonValue& array, int count)
{
    const QVector<int> result = integersOf(array);
    if (result.size() != count)
        throw std::runtime_error("not " + std::to_string(count) + " numbers: " + shown(array).toStdString());
    return result;
}

QColor colorOf(const QVector<int>& numbers)
{
    return QColor(numbers[0], numbers[1], numbers[2]);
}

QPen penOf(const QVector<int>& numbers)
{
    return QPen(QBrush(colorOf(numbers)), numbers[3], static_cast<Qt::PenStyle>(numbers[4]));
}

QJsonArray jsonOf(const QColor& color)
{
    return {color.red(), color.green(), color.blue()};
}

QJsonArray jsonOf(const QPen& pen)
{
    QJsonArray result = jsonOf(pen.color());
    result.append(pen.width());
    result.append(int(pen.style()));
    return result;
}

Verdict compareFound(const QJsonValue& wanted, const QString& found)
{
    return compareValue(wanted, found);
}

Verdict compareFound(const QJsonValue& wanted, bool found)
{
    return compareBool(wanted, found);
}

Verdict compareFound(const QJsonValue& wanted, const QJsonArray& found)
{
    return compareValue(wanted, found);
}

template <class Number>
Verdict compareFound(const QJsonValue& wanted, Number found)
{
    return compareNumber(wanted, toNumber(found));
}

/// Holds a getter against the call's value: with the section named, and with it current. `get` takes the
/// store and the place, which is section and key or the key alone.
template <class Get>
Verdict checkBothForms(const IniStore& store, const QJsonObject& call, Get&& get)
{
    const QString section = call.value(QLatin1String("section")).toString();
    const QString key = call.value(QLatin1String("key")).toString();
    const QJsonValue wanted = call.value(QLatin1String("value"));
    IniStore current = store;
    current.setSection(section);
    return checkRoads({
        {"section and key", [&] { return compareFound(wanted, get(store, section, key)); }},
        {"current section", [&] { return compareFound(wanted, get(current, key)); }},
    });
}

Verdict checkSimpleGetter(const IniStore& store, const QString& type, const QJsonObject& call)
{
    const QJsonValue fallback = call.value(QLatin1String("default"));
    if (type == QLatin1String("string"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return from.value(place..., fallback.toString());
        });
    if (type == QLatin1String("int"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return from.intValue(place..., integerOf(fallback));
        });
    if (type == QLatin1String("uint"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return from.uintValue(place..., uint(integerOf(fallback)));
        });
    if (type == QLatin1String("int64"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return from.int64Value(place..., integerOf(fallback));
        });
    if (type == QLatin1String("bool"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return from.boolValue(place..., fallback.toBool());
        });
    return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
        return from.doubleValue(place..., fallback.toDouble());
    });
}

Verdict checkTupleGetter(const IniStore& store, const QString& type, const QJsonObject& call)
{
    const QJsonValue fallback = call.value(QLatin1String("default"));
    if (type == QLatin1String("color")) {
        const QColor color = colorOf(integersOf(fallback, 3));
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return jsonOf(from.colorValue(place..., color));
        });
    }
    if (type == QLatin1String("pen")) {
        const QPen pen = penOf(integersOf(fallback, 5));
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            return jsonOf(from.penValue(place..., pen));
        });
    }
    const QVector<int> two = integersOf(fallback, 2);
    if (type == QLatin1String("point"))
        return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
            const QPoint point = from.pointValue(place..., {two[0], two[1]});
            return QJsonArray{point.x(), point.y()};
        });
    return checkBothForms(store, call, [&](const IniStore& from, const auto&... place) {
        const QSize size = from.sizeValue(place..., {two[0], two[1]});
        return QJsonArray{size.width(), size.height()};
    });
}

void runGetters(const IniStore& store, const QJsonValue& getters, Report& report)
{
    static const QStringList simple = {QStringLiteral("string"), QStringLiteral("int"),
                                       QStringLiteral("uint"),   QStringLiteral("int64"),
                                       QStringLiteral("bool"),   QStringLiteral("double")};
    static const QStringList tuples = {QStringLiteral("color"), QStringLiteral("pen"),
                                       QStringLiteral("point"), QStringLiteral("size")};
    const auto check = [&](const QJsonObject& call) {
        const QString type = call.value(QLatin1String("type")).toString();
        if (simple.contains(type))
            return checkSimpleGetter(store, type, call);
        if (tuples.contains(type))
            return checkTupleGetter(store, type, call);
        throw std::runtime_error("unknown type " + type.toStdString());
    };
    runCalls(QStringLiteral("getters"), getters, "type section key default value", check, report);
}

/// A setter that writes a tuple, chosen by the number of its parts.
bool setTuple(IniStore& store, const QString& section, const QString& key, const QJsonValue& tuple)
{
    const QVector<int> numbers = integersOf(tuple);
    if (numbers.size() == 5)
        return store.setPen(section, key, penOf(numbers));
    if (numbers.size() == 3)
        return store.setColor(section, key, colorOf(numbers));
    const QVector<int> two = integersOf(tuple, 2);
    return store.setPoint(section, key, {two[0], two[1]});
}

/// Does what the step says and gives its result, null where it has none.
QJsonValue doStep(IniStore& store, const QString& operation, const QJsonArray& arguments)
{
    const QString section = arguments.at(0).toString();
    const QString key = arguments.at(1).toString();
    const QJsonValue value = arguments.at(2);
    if (operation == QLatin1String("setSection")) {
        store.setSection(section);
        return QJsonValue::Null;
    }
    if (operation == QLatin1String("removeSection"))
        return store.removeSection(section);
    if (operation == QLatin1String("setValue"))
        return store.setValue(section, key, value.toString());
    if (operation == QLatin1String("setInt"))
        return store.setInt(section, key, integerOf(value));
    if (operation == QLatin1String("setBool"))
        return store.setBool(section, key, value.toBool());
    if (operation == QLatin1String("setDouble"))
        return store.setDouble(section, key, value.toDouble());
    if (operation == QLatin1String("setTuple"))
        return setTuple(store, section, key, value);
    throw std::runtime_error("unknown operation " + operation.toStdString());
}

/// Whether results can be compared: some hold texts outside ASCII, which need a UTF-8 locale.
bool suitsTheLocale(const GoldenCase& golden)
{
    constexpr int Utf8 = 106; // number of the character set
    return golden.expected.value(QLatin1String("requires")).toString() != QLatin1String("utf8") ||
           QTextCodec::codecForLocale()->mibEnum() == Utf8;
}

} // namespace

void checkIni(const GoldenCase& golden, Report& report)
{
    if (!suitsTheLocale(golden)) {
        report.skip(QStringLiteral("requires utf8"));
        return;
    }
    IniStore store;
    const bool loaded = store.load(golden.inputPath);
    for (auto field = golden.expected.begin(); field != golden.expected.end(); ++field) {
        const QString key = field.key();
        const QJsonValue wanted = field.value();
        if (isBookkeeping(key))
            continue;
        if (key == QLatin1String("load"))
            report.check(key, [&] { return compareBool(wanted, loaded); });
        else if (key == QLatin1String("sections"))
            report.check(key, [&] { return compareValue(wanted, sectionsOf(store)); });
        else if (key == QLatin1String("text"))
            report.check(key, [&] { return checkText(wanted, store); });
        else if (key == QLatin1String("getters"))
            runGetters(store, wanted, report);
        else
            report.skip(key);
    }
}

void checkIniSteps(const GoldenCase& golden, Report& report)
{
    IniStore store;
    const auto check = [&store](const QJsonObject& step) {
        const QJsonValue result = doStep(store, step.value(QLatin1String("op")).toString(),
                                         step.value(QLatin1String("args")).toArray());
        Verdict verdict =
            at(QStringLiteral(".result"), compareValue(step.value(QLatin1String("result")), result));
        append(verdict, at(QStringLiteral(".text"), checkText(step.value(QLatin1String("text")), store)));
        return verdict;
    };
    runCalls(QStringLiteral("steps"), golden.expected.value(QLatin1String("steps")), "op args result text",
             check, report);
}

Verdict checkRelativePath(const QJsonObject& call)
{
    const QString relative = IniStore::relativePath(call.value(QLatin1String("base")).toString(),
                                                    call.value(QLatin1String("path")).toString());
    return at(QStringLiteral(".relative"), compareValue(call.value(QLatin1String("relative")), relative));
}
