#include "inistore.h"

#include "safefile.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTextStream>
#include <QVector>

#include <algorithm>
#include <new>
#include <optional>

namespace
{

constexpr int ColorPartMost = 255;
constexpr int DoubleDecimals = 10;
constexpr int FontWeightMost = 99;

void setUp(QTextStream& stream, const QString& codecName)
{
    stream.setLocale(QLocale());
    if (!codecName.isEmpty())
        stream.setCodec(codecName.toLatin1().constData());
}

/// The numbers of a text of exactly `count` parts between commas; no value for any other text.
std::optional<QVector<int>> numbersOf(const QString& text, int count)
{
    if (text.count(QLatin1Char(',')) != count - 1)
        return std::nullopt;
    QVector<int> numbers;
    const auto parts = text.splitRef(QLatin1Char(','));
    for (const QStringRef& part : parts) {
        bool ok = false;
        numbers.append(part.toInt(&ok));
        if (!ok)
            return std::nullopt;
    }
    return numbers;
}

/// The colour that the first three numbers give.
std::optional<QColor> colorOf(const QVector<int>& numbers)
{
    const auto isPart = [](int number) { return number >= 0 && number <= ColorPartMost; };
    if (!std::all_of(numbers.begin(), numbers.begin() + 3, isPart))
        return std::nullopt;
    return QColor(numbers[0], numbers[1], numbers[2]);
}

std::optional<QColor> colorOf(const QString& text)
{
    if (text.contains(QLatin1Char(','))) {
        const auto numbers = numbersOf(text, 3);
        return numbers ? colorOf(*numbers) : std::nullopt;
    }
    bool ok = false;
    const QRgb rgb = text.toUInt(&ok);
    return ok ? std::optional<QColor>(QColor(rgb)) : std::nullopt;
}

std::optional<QPen> penOf(const QColor& color, int width, int style)
{
    if (width < 0 || style < Qt::NoPen || style > Qt::CustomDashLine)
        return std::nullopt;
    return QPen(QBrush(color), width, static_cast<Qt::PenStyle>(style), Qt::SquareCap, Qt::BevelJoin);
}

std::optional<QPen> penOf(const QString& text)
{
    const auto numbers = numbersOf(text, 5);
    const auto color = numbers ? colorOf(*numbers) : std::nullopt;
    return color ? penOf(*color, numbers->at(3), numbers->at(4)) : std::nullopt;
}

QString pairText(int first, int second)
{
    return QStringLiteral("%1,%2").arg(first).arg(second);
}

QString colorText(const QColor& color)
{
    return QStringLiteral("%1,%2,%3").arg(color.red()).arg(color.green()).arg(color.blue());
}

/// The names of the folders down to that of `file`.
QStringList foldersOf(const QString& file)
{
    const QString folder = QDir::cleanPath(QFileInfo(file).absolutePath());
    return folder.split(QLatin1Char('/'), Qt::SkipEmptyParts);
}

/// Whether the text fits a line. A line feed would end it, and what follows be read as lines of its own.
bool isOneLine(const QString& text)
{
    return !text.contains(QLatin1Char('\n'));
}

/// Writes over a file whose folder takes no new one, where nothing better is possible.
bool overwrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.exists() && file.open(QIODevice::ReadWrite) && file.write(bytes) == bytes.size() &&
           file.flush() && file.resize(bytes.size());
}

/// Where every drive has its root there is no way from one to another.
bool onOtherDrives(const QStringList& from, const QStringList& to)
{
    return QDir::drives().size() > 1 && from.value(0).toLower() != to.value(0).toLower();
}

} // namespace

bool IniStore::load(const QString& path)
{
    m_sections.clear();
    m_currentSection.clear();
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    if (file.size() == 0 || file.size() > FileSizeLimit)
        return false;
    try {
        QTextStream stream(&file);
        setUp(stream, m_codecName);
        QString text = stream.readAll();
        if (file.error() != QFileDevice::NoError)
            return false;
        if (!text.endsWith(QLatin1Char('\n')))
            text += QLatin1Char('\n');
        parse(text);
    } catch (const std::bad_alloc&) {
        return false;
    }
    m_fileName = path;
    return true;
}

void IniStore::parse(const QString& text)
{
    m_sections.clear();
    m_currentSection.clear();
    Entries* entries = nullptr;
    try {
        int start = 0;
        for (int end = text.indexOf(QLatin1Char('\n')); end >= 0;
             end = text.indexOf(QLatin1Char('\n'), start)) {
            parseLine(text.mid(start, end - start), entries);
            start = end + 1;
        }
    } catch (const std::bad_alloc&) {
        m_sections.clear();
    }
}

/// `entries` are those of the section that the line stands in, null before the first section.
void IniStore::parseLine(const QString& line, Entries*& entries)
{
    if (line.startsWith(QLatin1Char('['))) {
        const int end = line.lastIndexOf(QLatin1Char(']'));
        if (end > 1)
            entries = &m_sections[line.mid(1, end - 1)];
        return;
    }
    const int equals = line.indexOf(QLatin1Char('='));
    if (entries && equals >= 0)
        entries->emplace_back(line.left(equals), line.mid(equals + 1));
}

bool IniStore::save()
{
    return !m_fileName.isEmpty() && saveAs(m_fileName);
}

bool IniStore::saveAs(const QString& path)
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly | QIODevice::Text);
    QTextStream stream(&bytes);
    setUp(stream, m_codecName);
    stream << toString();
    stream.flush();

    SafeFile file(path);
    const bool written = file.open() ? file.write(bytes.data().constData(), bytes.size()) && file.commit()
                                     : overwrite(path, bytes.data());
    if (!written)
        return false;
    m_fileName = path;
    return true;
}

QString IniStore::toString() const
{
    QString text;
    for (const auto& [name, entries] : m_sections) {
        text += QLatin1Char('[') + name + QStringLiteral("]\n");
        for (const auto& [key, value] : entries)
            text += key + QLatin1Char('=') + value + QLatin1Char('\n');
        text += QLatin1Char('\n');
    }
    return text;
}

void IniStore::setSection(const QString& name)
{
    if (isOneLine(name))
        m_sections[name];
    m_currentSection = name;
}

bool IniStore::removeSection(const QString& name)
{
    const bool current = name == m_currentSection; // `name` may be a reference to what goes
    if (m_sections.erase(name) == 0)
        return false;
    if (current)
        setSection(QString());
    return true;
}

QStringList IniStore::sections() const
{
    QStringList names;
    for (const auto& section : m_sections)
        names << section.first;
    return names;
}

IniStore::Entries IniStore::entries(const QString& section) const
{
    const auto found = m_sections.find(section);
    return found == m_sections.end() ? Entries() : found->second;
}

/// The first value of the key; null if there is none.
const QString* IniStore::find(const QString& section, const QString& key) const
{
    const auto found = m_sections.find(section);
    if (found == m_sections.end())
        return nullptr;
    const Entries& entries = found->second;
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&key](const Entry& each) { return each.first == key; });
    return entry == entries.end() ? nullptr : &entry->second;
}

QString IniStore::value(const QString& section, const QString& key, const QString& fallback) const
{
    const QString* const text = find(section, key);
    return text ? *text : fallback;
}

QString IniStore::value(const QString& key, const QString& fallback) const
{
    return value(m_currentSection, key, fallback);
}

bool IniStore::setValue(const QString& section, const QString& key, const QString& value)
{
    const auto found = m_sections.find(section);
    if (found == m_sections.end() || !isOneLine(key) || !isOneLine(value))
        return false;
    Entries& entries = found->second;
    const auto entry =
        std::find_if(entries.begin(), entries.end(), [&key](const Entry& each) { return each.first == key; });
    if (entry == entries.end())
        entries.emplace_back(key, value);
    else
        entry->second = value;
    return true;
}

bool IniStore::setValue(const QString& key, const QString& value)
{
    return setValue(m_currentSection, key, value);
}

int IniStore::intValue(const QString& section, const QString& key, int fallback) const
{
    const QString* const text = find(section, key);
    return text ? text->toInt() : fallback;
}

int IniStore::intValue(const QString& key, int fallback) const
{
    return intValue(m_currentSection, key, fallback);
}

bool IniStore::setInt(const QString& section, const QString& key, int value)
{
    return setValue(section, key, QString::number(value));
}

bool IniStore::setInt(const QString& key, int value)
{
    return setInt(m_currentSection, key, value);
}

uint IniStore::uintValue(const QString& section, const QString& key, uint fallback) const
{
    const QString* const text = find(section, key);
    return text ? text->toUInt() : fallback;
}

uint IniStore::uintValue(const QString& key, uint fallback) const
{
    return uintValue(m_currentSection, key, fallback);
}

bool IniStore::setUInt(const QString& section, const QString& key, uint value)
{
    return setValue(section, key, QString::number(value));
}

bool IniStore::setUInt(const QString& key, uint value)
{
    return setUInt(m_currentSection, key, value);
}

qint64 IniStore::int64Value(const QString& section, const QString& key, qint64 fallback) const
{
    const QString* const text = find(section, key);
    return text ? text->toLongLong() : fallback;
}

qint64 IniStore::int64Value(const QString& key, qint64 fallback) const
{
    return int64Value(m_currentSection, key, fallback);
}

bool IniStore::setInt64(const QString& section, const QString& key, qint64 value)
{
    return setValue(section, key, QString::number(value));
}

bool IniStore::setInt64(const QString& key, qint64 value)
{
    return setInt64(m_currentSection, key, value);
}

bool IniStore::boolValue(const QString& section, const QString& key, bool fallback) const
{
    const QString* const text = find(section, key);
    return text ? text->toInt() != 0 : fallback;
}

bool IniStore::boolValue(const QString& key, bool fallback) const
{
    return boolValue(m_currentSection, key, fallback);
}

bool IniStore::setBool(const QString& section, const QString& key, bool value)
{
    return setValue(section, key, value ? QStringLiteral("1") : QStringLiteral("0"));
}

bool IniStore::setBool(const QString& key, bool value)
{
    return setBool(m_currentSection, key, value);
}

double IniStore::doubleValue(const QString& section, const QString& key, double fallback) const
{
    const QString* const text = find(section, key);
    return text ? text->toDouble() : fallback;
}

double IniStore::doubleValue(const QString& key, double fallback) const
{
    return doubleValue(m_currentSection, key, fallback);
}

bool IniStore::setDouble(const QString& section, const QString& key, double value)
{
    return setValue(section, key, QString::number(value, 'f', DoubleDecimals));
}

bool IniStore::setDouble(const QString& key, double value)
{
    return setDouble(m_currentSection, key, value);
}

QColor IniStore::colorValue(const QString& section, const QString& key, const QColor& fallback) const
{
    const QString* const text = find(section, key);
    return text ? colorOf(*text).value_or(fallback) : fallback;
}

QColor IniStore::colorValue(const QString& key, const QColor& fallback) const
{
    return colorValue(m_currentSection, key, fallback);
}

bool IniStore::setColor(const QString& section, const QString& key, const QColor& value)
{
    return setValue(section, key, colorText(value));
}

bool IniStore::setColor(const QString& key, const QColor& value)
{
    return setColor(m_currentSection, key, value);
}

QFont IniStore::fontValue(const QString& section, const QString& key, const QFont& fallback) const
{
    const QString part = key + QStringLiteral("_font_");
    if (const QString* const family = find(section, part + QStringLiteral("name"))) {
        const int size = intValue(section, part + QStringLiteral("size"), fallback.pointSize());
        const int weight = intValue(section, part + QStringLiteral("weight"), fallback.weight());
        const bool italic = boolValue(section, part + QStringLiteral("italic"), fallback.italic());
        return QFont(*family, size, std::min(weight, FontWeightMost), italic);
    }
    const QString* const text = find(section, key);
    QFont font;
    return text && font.fromString(*text) ? font : fallback;
}

QFont IniStore::fontValue(const QString& key, const QFont& fallback) const
{
    return fontValue(m_currentSection, key, fallback);
}

bool IniStore::setFont(const QString& section, const QString& key, const QFont& value)
{
    return setValue(section, key, value.toString());
}

bool IniStore::setFont(const QString& key, const QFont& value)
{
    return setFont(m_currentSection, key, value);
}

QPen IniStore::penValue(const QString& section, const QString& key, const QPen& fallback) const
{
    const QString part = key + QStringLiteral("_pen_");
    const QString colorKey = part + QStringLiteral("color");
    if (hasKey(section, colorKey)) {
        const QColor color = colorValue(section, colorKey, fallback.color());
        const int width = intValue(section, part + QStringLiteral("width"), fallback.width());
        const int style = intValue(section, part + QStringLiteral("style"), int(fallback.style()));
        return penOf(color, width, style).value_or(fallback);
    }
    const QString* const text = find(section, key);
    return text ? penOf(*text).value_or(fallback) : fallback;
}

QPen IniStore::penValue(const QString& key, const QPen& fallback) const
{
    return penValue(m_currentSection, key, fallback);
}

bool IniStore::setPen(const QString& section, const QString& key, const QPen& value)
{
    return setValue(section, key,
                    colorText(value.color()) + QLatin1Char(',') +
                        pairText(value.width(), int(value.style())));
}

bool IniStore::setPen(const QString& key, const QPen& value)
{
    return setPen(m_currentSection, key, value);
}

QPoint IniStore::pointValue(const QString& section, const QString& key, const QPoint& fallback) const
{
    const QString xKey = key + QStringLiteral("_point_x");
    if (hasKey(section, xKey))
        return {intValue(section, xKey, 0),
                intValue(section, key + QStringLiteral("_point_y"), fallback.y())};
    const QString* const text = find(section, key);
    const auto numbers = text ? numbersOf(*text, 2) : std::nullopt;
    return numbers ? QPoint(numbers->at(0), numbers->at(1)) : fallback;
}

QPoint IniStore::pointValue(const QString& key, const QPoint& fallback) const
{
    return pointValue(m_currentSection, key, fallback);
}

bool IniStore::setPoint(const QString& section, const QString& key, const QPoint& value)
{
    return setValue(section, key, pairText(value.x(), value.y()));
}

bool IniStore::setPoint(const QString& key, const QPoint& value)
{
    return setPoint(m_currentSection, key, value);
}

QSize IniStore::sizeValue(const QString& section, const QString& key, const QSize& fallback) const
{
    const QString widthKey = key + QStringLiteral("_size_width");
    if (hasKey(section, widthKey))
        return {intValue(section, widthKey, 0),
                intValue(section, key + QStringLiteral("_size_height"), fallback.height())};
    const QString* const text = find(section, key);
    const auto numbers = text ? numbersOf(*text, 2) : std::nullopt;
    return numbers ? QSize(numbers->at(0), numbers->at(1)) : fallback;
}

QSize IniStore::sizeValue(const QString& key, const QSize& fallback) const
{
    return sizeValue(m_currentSection, key, fallback);
}

bool IniStore::setSize(const QString& section, const QString& key, const QSize& value)
{
    return setValue(section, key, pairText(value.width(), value.height()));
}

bool IniStore::setSize(const QString& key, const QSize& value)
{
    return setSize(m_currentSection, key, value);
}

QString IniStore::absolutePath(const QString& baseFile, const QString& path)
{
    if (path.isEmpty() || QFileInfo(path).isAbsolute())
        return path;
    // relativePath() counts folders by name and not behind links, and so does this way back.
    return QDir::cleanPath(QFileInfo(baseFile).absolutePath() + QLatin1Char('/') + path);
}

QString IniStore::relativePath(const QString& baseFile, const QString& path)
{
    const QFileInfo target(path);
    if (target.isRelative()) {
        const QString canonical = target.canonicalFilePath();
        return canonical.isEmpty() ? QDir::cleanPath(path) : canonical;
    }
    const QString cleaned = QDir::cleanPath(path);
    const QStringList from = foldersOf(baseFile);
    const QStringList to = foldersOf(cleaned);
    if (onOtherDrives(from, to))
        return path;
    const int shorter = std::min(from.size(), to.size());
    const auto common =
        int(std::mismatch(from.begin(), from.begin() + shorter, to.begin()).first - from.begin());
    QStringList steps;
    for (int i = common; i < from.size(); ++i)
        steps << QStringLiteral("..");
    return (steps + to.mid(common) + QStringList{QFileInfo(cleaned).fileName()}).join(QLatin1Char('/'));
}

bool replaceSection(const QString& path, const QString& section,
                    const std::function<void(IniStore& store)>& write)
{
    IniStore store;
    const QFileInfo file(path);
    // What cannot be read must not be replaced by this one section.
    if (!store.load(path) && file.exists() && file.size() > 0)
        return false;
    store.removeSection(section);
    store.setSection(section);
    write(store);
    return store.saveAs(path);
}
