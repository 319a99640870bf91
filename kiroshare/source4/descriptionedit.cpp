#include "descriptionedit.h"

#include <QTextDocument>
#include <QTextLayout>
#include <QtMath>

namespace
{

/// Of laid out text, which may take more than the font's line spacing.
double lineHeight(const QFont& font)
{
    QTextLayout layout(QStringLiteral("X"), font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return line.height();
}

} // namespace

DescriptionEdit::DescriptionEdit(QWidget* parent)
    : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
}

void DescriptionEdit::setDescription(const QString& text)
{
    setPlainText(text);
    m_given = text;
    m_shown = toPlainText();
}

QString DescriptionEdit::description() const
{
    const QString text = toPlainText();
    return text == m_shown ? m_given : text;
}

QSize DescriptionEdit::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * 40, heightOf(4)};
}

QSize DescriptionEdit::minimumSizeHint() const
{
    return {fontMetrics().averageCharWidth() * 20, heightOf(2)};
}

int DescriptionEdit::heightOf(int lines) const
{
    const QMargins frame = contentsMargins();
    const double text = lineHeight(font()) * lines + 2.0 * document()->documentMargin();
    // A text that just fits is scrolled all the same.
    return qCeil(text) + 1 + frame.top() + frame.bottom();
}
