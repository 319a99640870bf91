#include "themedicon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace
{

/// The colours that the images are drawn in.
constexpr const char* InkInFile = "#2b2f36";
constexpr const char* AccentInFile = "#1a73c8";

/// Light against dark needs a lighter accent than dark against light.
QColor accentFor(const QPalette& palette)
{
    const bool darkGround = palette.color(QPalette::Window).lightnessF() < 0.5;
    return darkGround ? QColor(0x6c, 0xb2, 0xff) : QColor(QLatin1String(AccentInFile));
}

QColor inkFor(const QPalette& palette, QPalette::ColorGroup group)
{
    return palette.color(group, QPalette::WindowText);
}

class ThemedIconEngine final : public QIconEngine
{
public:
    explicit ThemedIconEngine(const QByteArray& drawing)
        : m_drawing(drawing)
    {
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QGuiApplication::palette();
        const bool disabled = mode == QIcon::Disabled;
        const QColor ink = inkFor(palette, disabled ? QPalette::Disabled : QPalette::Active);
        QByteArray coloured = m_drawing;
        coloured.replace(InkInFile, ink.name().toLatin1());
        coloured.replace(AccentInFile, (disabled ? ink : accentFor(palette)).name().toLatin1());
        QSvgRenderer(coloured).render(painter, rect);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new ThemedIconEngine(*this); }

private:
    QByteArray m_drawing;
};

} // namespace

/// Resources of a static library are there only after this; a macro that must stand outside of namespaces.
static void initImages()
{
    Q_INIT_RESOURCE(images);
}

QIcon themedIcon(const QString& name)
{
    initImages();
    QFile file(QStringLiteral(":/images/%1.svg").arg(name));
    if (!file.open(QIODevice::ReadOnly))
        return QIcon();
    return QIcon(new ThemedIconEngine(file.readAll()));
}
