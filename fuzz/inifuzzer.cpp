// Any bytes as a settings file and as its text: read, read by every typed getter, and written again the same.

#include "memoryfile.h"

#include "inistore.h"

#include <QtGlobal>

namespace
{

/// Entries whose values are read as every type.
constexpr std::size_t MostEntries = 100;

void readAsEveryType(const IniStore& store, const QString& section, const QString& key)
{
    const QPoint point(1, 2);
    (void)store.intValue(section, key, 1);
    (void)store.uintValue(section, key, 1);
    (void)store.int64Value(section, key, 1);
    (void)store.boolValue(section, key, true);
    (void)store.doubleValue(section, key, 1.0);
    const QColor color = store.colorValue(section, key, Qt::red);
    require(color.isValid() && color.alpha() == 255);
    const QPen pen = store.penValue(section, key, QPen(Qt::red));
    require(pen.width() >= 0 && pen.style() >= Qt::NoPen && pen.style() <= Qt::CustomDashLine);
    (void)store.fontValue(section, key, QFont()).toString();
    (void)store.pointValue(section, key, point);
    (void)store.sizeValue(section, key, QSize(1, 2));
}

void readEntries(const IniStore& store)
{
    const QStringList sections = store.sections();
    std::size_t left = MostEntries;
    for (const QString& section : sections) {
        for (const auto& [key, value] : store.entries(section)) {
            if (left-- == 0)
                return;
            require(store.hasKey(section, key));
            readAsEveryType(store, section, key);
            // Also by the parts of the older forms: "a_point_x" is what "a" is looked for in.
            for (int end = key.indexOf(QLatin1Char('_')); end >= 0;
                 end = key.indexOf(QLatin1Char('_'), end + 1))
                readAsEveryType(store, section, key.left(end));
        }
    }
}

/// What was read is written, and read and written again the same.
void checkRoundTrip(const IniStore& store)
{
    const QString text = store.toString();
    IniStore again;
    again.parse(text);
    require(again.toString() == text && again.sections() == store.sections());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    // Qt warns of every text that is no font.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    IniStore store;
    const MemoryFile file(bytes, count);
    const bool loaded = store.load(file.path().toQString());
    require(loaded == (count > 0));
    readEntries(store);
    checkRoundTrip(store);
    store.parse(QString::fromLatin1(reinterpret_cast<const char*>(bytes), int(count)));
    readEntries(store);
    checkRoundTrip(store);
    return 0;
}
