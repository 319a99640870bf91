#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QPoint>
#include <QSize>
#include <QString>
#include <QStringList>

#include <functional>
#include <map>
#include <utility>
#include <vector>

/// A table of sections with keys and values, and its text form:
///
///     [section]
///     key=value
///
/// A value is the literal text behind the first "=" of its line: nothing is trimmed, quoted or escaped, and
/// there are no comments. Sections are sorted by name; keys keep their order, and of a key that stands twice
/// the first counts. Stores are short-lived: one is made, loaded, read or written, and dropped.
///
/// Every getter returns `fallback` where the key is absent; those without a section look into the current
/// one. Every setter needs its section to exist: else it stores nothing and returns false. Nothing throws,
/// and any file or text is survived.
class IniStore
{
public:
    using Entry = std::pair<QString, QString>; ///< key and value
    using Entries = std::vector<Entry>;

    /// Larger files are no settings; load() refuses them.
    static constexpr qint64 FileSizeLimit = qint64(128) << 20;

    /// Replaces the table by the file's. False, with an empty table, if the file is missing, cannot be read,
    /// is empty or exceeds FileSizeLimit. A last line without line feed is taken too. The current section is
    /// empty afterwards; a file that was loaded gives its name to save().
    bool load(const QString& path);
    /// Replaces the table by the text's. Only what ends in a line feed is a line. Skipped are lines before
    /// the first section, lines without "=", and section lines without "]" or without a name. A section that
    /// comes again is continued. The current section is empty afterwards.
    void parse(const QString& text);
    /// saveAs() to the file last loaded or saved; false if there is none.
    bool save();
    /// Replaces the file whole or not at all; where only the file and not its folder may be written, it is
    /// written over. False if that fails.
    bool saveAs(const QString& path);
    /// The whole text.
    QString toString() const;

    const QString& fileName() const { return m_fileName; }
    /// Name of the text codec for load() and saveAs(); empty for that of the locale.
    const QString& codecName() const { return m_codecName; }
    void setCodecName(const QString& name) { m_codecName = name; }

    /// Makes the section current, and creates it if it is missing. A name with a line feed, which would be
    /// read back as lines of its own, has no section.
    void setSection(const QString& name);
    const QString& currentSection() const { return m_currentSection; }
    /// False if it is absent. In place of a current section that goes, a new one of empty name is made and
    /// current; it is saved as "[]" and not read again.
    bool removeSection(const QString& name);
    bool hasSection(const QString& name) const { return m_sections.count(name) > 0; }
    bool hasKey(const QString& section, const QString& key) const { return find(section, key) != nullptr; }
    bool hasKey(const QString& key) const { return hasKey(m_currentSection, key); }
    /// Names in order.
    QStringList sections() const;
    /// Of a section, in order; none if it is absent.
    Entries entries(const QString& section) const;

    QString value(const QString& section, const QString& key, const QString& fallback) const;
    QString value(const QString& key, const QString& fallback) const;
    /// Replaces the first value of the key, or appends an entry. False, and no change, if there is no such
    /// section or a text holds a line feed.
    bool setValue(const QString& section, const QString& key, const QString& value);
    bool setValue(const QString& key, const QString& value);

    /// Decimal numbers; a text that is none gives 0, not `fallback`.
    int intValue(const QString& section, const QString& key, int fallback) const;
    int intValue(const QString& key, int fallback) const;
    bool setInt(const QString& section, const QString& key, int value);
    bool setInt(const QString& key, int value);
    uint uintValue(const QString& section, const QString& key, uint fallback) const;
    uint uintValue(const QString& key, uint fallback) const;
    bool setUInt(const QString& section, const QString& key, uint value);
    bool setUInt(const QString& key, uint value);
    qint64 int64Value(const QString& section, const QString& key, qint64 fallback) const;
    qint64 int64Value(const QString& key, qint64 fallback) const;
    bool setInt64(const QString& section, const QString& key, qint64 value);
    bool setInt64(const QString& key, qint64 value);

    /// "1" or "0"; every number but 0 is read as true, every other text as false.
    bool boolValue(const QString& section, const QString& key, bool fallback) const;
    bool boolValue(const QString& key, bool fallback) const;
    bool setBool(const QString& section, const QString& key, bool value);
    bool setBool(const QString& key, bool value);

    /// 10 decimals; a text that is no number gives 0.
    double doubleValue(const QString& section, const QString& key, double fallback) const;
    double doubleValue(const QString& key, double fallback) const;
    bool setDouble(const QString& section, const QString& key, double value);
    bool setDouble(const QString& key, double value);

    /// "red,green,blue", each 0 to 255; older files have one number, blue in its low byte. Any other text
    /// gives `fallback`, here and in the types below.
    QColor colorValue(const QString& section, const QString& key, const QColor& fallback) const;
    QColor colorValue(const QString& key, const QColor& fallback) const;
    bool setColor(const QString& section, const QString& key, const QColor& value);
    bool setColor(const QString& key, const QColor& value);

    // Older files have the parts of the following types in keys of their own, such as KEY_point_x. Where the
    // first of these is there, they are read in place of KEY; parts that are absent come from `fallback`.

    /// As QFont::toString(). Older: _font_name, _font_size (points), _font_weight, _font_italic.
    QFont fontValue(const QString& section, const QString& key, const QFont& fallback) const;
    QFont fontValue(const QString& key, const QFont& fallback) const;
    bool setFont(const QString& section, const QString& key, const QFont& value);
    bool setFont(const QString& key, const QFont& value);

    /// "red,green,blue,width,style", read as a pen of solid brush, square cap and bevel join. Older:
    /// _pen_color, _pen_width, _pen_style.
    QPen penValue(const QString& section, const QString& key, const QPen& fallback) const;
    QPen penValue(const QString& key, const QPen& fallback) const;
    bool setPen(const QString& section, const QString& key, const QPen& value);
    bool setPen(const QString& key, const QPen& value);

    /// "x,y". Older: _point_x, _point_y.
    QPoint pointValue(const QString& section, const QString& key, const QPoint& fallback) const;
    QPoint pointValue(const QString& key, const QPoint& fallback) const;
    bool setPoint(const QString& section, const QString& key, const QPoint& value);
    bool setPoint(const QString& key, const QPoint& value);

    /// "width,height". Older: _size_width, _size_height.
    QSize sizeValue(const QString& section, const QString& key, const QSize& fallback) const;
    QSize sizeValue(const QString& key, const QSize& fallback) const;
    bool setSize(const QString& section, const QString& key, const QSize& value);
    bool setSize(const QString& key, const QSize& value);

    /// The file that a relative `path` names from the folder of `baseFile`, without ".." in it. An absolute
    /// or empty path stays as it is.
    static QString absolutePath(const QString& baseFile, const QString& path);
    /// The way from the folder of `baseFile` to the file at the absolute `path`, such as "../c/r.kiro". A
    /// path on another drive stays as it is. A relative path, which counts from the working folder, comes
    /// back canonical, or cleaned if there is no such file.
    static QString relativePath(const QString& baseFile, const QString& path);

private:
    const QString* find(const QString& section, const QString& key) const;
    void parseLine(const QString& line, Entries*& entries);

    std::map<QString, Entries> m_sections;
    QString m_fileName;
    QString m_codecName;
    QString m_currentSection;
};

/// How every window keeps its settings: loads the file afresh, so that other windows' sections are as they
/// stand there now, empties the section, has `write` fill it (it is the current one), and saves the file.
/// False, with the file left alone, if it is there and cannot be read, or cannot be replaced.
bool replaceSection(const QString& path, const QString& section,
                    const std::function<void(IniStore& store)>& write);
