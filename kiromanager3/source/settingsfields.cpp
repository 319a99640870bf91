#include "settingsfields.h"

#include "inistore.h"

#include <QGuiApplication>
#include <QRect>
#include <QScreen>
#include <QStandardPaths>
#include <QStringList>

namespace
{

constexpr int FontSizeMost = 512; // of the font dialog
constexpr int PenWidthMost = 99;  // of the pen dialog
constexpr int WindowPixelsMost = 32767;
const QString JpegAlias = QStringLiteral("JPEG"); // the other name of "JPG"

} // namespace

bool SettingsReader::read(const QString& key, bool old) const
{
    return m_store.boolValue(m_section, key, old);
}

int SettingsReader::read(const QString& key, int old) const
{
    return m_store.intValue(m_section, key, old);
}

double SettingsReader::read(const QString& key, double old) const
{
    return m_store.doubleValue(m_section, key, old);
}

QString SettingsReader::read(const QString& key, const QString& old) const
{
    return m_store.value(m_section, key, old);
}

QColor SettingsReader::read(const QString& key, const QColor& old) const
{
    return m_store.colorValue(m_section, key, old);
}

QFont SettingsReader::read(const QString& key, const QFont& old) const
{
    return m_store.fontValue(m_section, key, old);
}

QPen SettingsReader::read(const QString& key, const QPen& old) const
{
    return m_store.penValue(m_section, key, old);
}

QPoint SettingsReader::read(const QString& key, const QPoint& old) const
{
    return m_store.pointValue(m_section, key, old);
}

QSize SettingsReader::read(const QString& key, const QSize& old) const
{
    return m_store.sizeValue(m_section, key, old);
}

void SettingsWriter::write(const QString& key, bool value) const
{
    m_store.setBool(m_section, key, value);
}

void SettingsWriter::write(const QString& key, int value) const
{
    m_store.setInt(m_section, key, value);
}

void SettingsWriter::write(const QString& key, double value) const
{
    m_store.setDouble(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QString& value) const
{
    m_store.setValue(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QColor& value) const
{
    m_store.setColor(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QFont& value) const
{
    m_store.setFont(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QPen& value) const
{
    m_store.setPen(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QPoint& value) const
{
    m_store.setPoint(m_section, key, value);
}

void SettingsWriter::write(const QString& key, const QSize& value) const
{
    m_store.setSize(m_section, key, value);
}

bool anyBool(const bool& /*value*/)
{
    return true;
}

bool anyString(const QString& /*value*/)
{
    return true;
}

bool isNotEmpty(const QString& text)
{
    return !text.isEmpty();
}

bool isColor(const QColor& color)
{
    return color.isValid();
}

bool isPlotFont(const QFont& font)
{
    return font.pointSizeF() <= FontSizeMost && font.pixelSize() <= FontSizeMost;
}

bool isPlotPen(const QPen& pen)
{
    return pen.width() <= PenWidthMost && pen.style() != Qt::CustomDashLine;
}

bool isWindowSize(const QSize& size)
{
    return !size.isEmpty() && size.width() <= WindowPixelsMost && size.height() <= WindowPixelsMost;
}

bool isWindowPosition(const QPoint& position)
{
    return QRect(-WindowPixelsMost, -WindowPixelsMost, 2 * WindowPixelsMost, 2 * WindowPixelsMost)
        .contains(position);
}

bool isImageFormat(const QString& format)
{
    return QStringList{QStringLiteral("PNG"), QStringLiteral("JPG"), JpegAlias, QStringLiteral("BMP"),
                       QStringLiteral("XPM")}
        .contains(format);
}

QString mainImageFormat(const QString& format)
{
    return format == JpegAlias ? QStringLiteral("JPG") : format;
}

QPen storedPen(const QColor& color, int width, Qt::PenStyle style)
{
    return QPen(QBrush(color), width, style, Qt::SquareCap, Qt::BevelJoin);
}

QPoint centredOnScreen(const QSize& size)
{
    QRect window(QPoint(), size);
    if (const QScreen* const screen = QGuiApplication::primaryScreen())
        window.moveCenter(screen->availableGeometry().center());
    return window.topLeft();
}

QString documentsFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
}

QString readText(const IniStore& store, const QString& section, const QString& key, const QString& fallback)
{
    QString text = store.value(section, key, fallback);
    return text.replace(QChar(QChar::LineSeparator), QLatin1Char('\n'));
}

void writeText(IniStore& store, const QString& section, const QString& key, QString text)
{
    store.setValue(section, key, text.replace(QLatin1Char('\n'), QChar(QChar::LineSeparator)));
}
