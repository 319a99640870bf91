#pragma once

#include <QColor>
#include <QFont>
#include <QPen>
#include <QPoint>
#include <QSize>
#include <QString>

class IniStore;

/// A settings record names its fields once, in a function that calls a field functor with the key, the value
/// and a check for each of them: with a SettingsReader to load, with a SettingsWriter to save.

/// Takes from a section what is there and passes its check; other values stay.
class SettingsReader
{
public:
    /// The store must outlive the reader.
    SettingsReader(const IniStore& store, const QString& section)
        : m_store(store)
        , m_section(section)
    {
    }

    template <class Value>
    void operator()(const QString& key, Value& value, bool (*accepts)(const Value&)) const
    {
        const Value stored = read(key, value);
        if (accepts(stored))
            value = stored;
    }

    bool read(const QString& key, bool old) const;
    int read(const QString& key, int old) const;
    double read(const QString& key, double old) const;
    QString read(const QString& key, const QString& old) const;
    QColor read(const QString& key, const QColor& old) const;
    QFont read(const QString& key, const QFont& old) const;
    QPen read(const QString& key, const QPen& old) const;
    QPoint read(const QString& key, const QPoint& old) const;
    QSize read(const QString& key, const QSize& old) const;

private:
    const IniStore& m_store;
    const QString m_section;
};

/// Puts every value into a section, which must exist.
class SettingsWriter
{
public:
    /// The store must outlive the writer.
    SettingsWriter(IniStore& store, const QString& section)
        : m_store(store)
        , m_section(section)
    {
    }

    template <class Value>
    void operator()(const QString& key, const Value& value, bool (* /*accepts*/)(const Value&)) const
    {
        write(key, value);
    }

    void write(const QString& key, bool value) const;
    void write(const QString& key, int value) const;
    void write(const QString& key, double value) const;
    void write(const QString& key, const QString& value) const;
    void write(const QString& key, const QColor& value) const;
    void write(const QString& key, const QFont& value) const;
    void write(const QString& key, const QPen& value) const;
    void write(const QString& key, const QPoint& value) const;
    void write(const QString& key, const QSize& value) const;

private:
    IniStore& m_store;
    const QString m_section;
};

// Checks

bool anyBool(const bool& value);
bool anyString(const QString& value);
bool isNotEmpty(const QString& text);
/// Valid, as every colour is that a store gives back.
bool isColor(const QColor& color);
/// Up to 512 points or pixels, as far as the font dialog goes.
bool isPlotFont(const QFont& font);
/// Up to 99 wide, as far as the pen dialog goes, and not dashed in a way of its own.
bool isPlotPen(const QPen& pen);
/// As far as the window system counts, and not empty.
bool isWindowSize(const QSize& size);
/// As far as the window system counts.
bool isWindowPosition(const QPoint& position);
/// "PNG", "JPG", its other name "JPEG", "BMP" or "XPM".
bool isImageFormat(const QString& format);

/// "JPG" for "JPEG"; every other format is its own name.
QString mainImageFormat(const QString& format);

/// A pen as the store gives one back.
QPen storedPen(const QColor& color, int width, Qt::PenStyle style);
/// Where a window of that size stands in the middle of the first screen; (0, 0) without screens.
QPoint centredOnScreen(const QSize& size);
/// The user's documents, where file dialogs start at first.
QString documentsFolder();

/// A text that may have several lines, which a settings file has no room for: line feeds stand there as
/// Unicode line separators.
QString readText(const IniStore& store, const QString& section, const QString& key, const QString& fallback);
/// Into the section, which must exist.
void writeText(IniStore& store, const QString& section, const QString& key, QString text);
