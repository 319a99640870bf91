#include "questiondialog.h"

#include "ui_questiondialog.h"

#include <algorithm>
#include <array>

namespace
{

/// A pixmap's size on the screen, whatever its resolution.
QSize naturalSize(const QPixmap& pixmap)
{
    if (pixmap.isNull())
        return {0, 0};
    return (QSizeF(pixmap.size()) / pixmap.devicePixelRatioF()).toSize();
}

std::array<QPushButton*, 3> pushButtons(const Ui::QuestionDialogBase& ui)
{
    return {ui.button0, ui.button1, ui.button2};
}

std::array<QToolButton*, 3> toolButtons(const Ui::QuestionDialogBase& ui)
{
    return {ui.toolButton0, ui.toolButton1, ui.toolButton2};
}

/// Room for the lines of the question as they are, unless they are very long.
int widthFor(const QString& text, const QFontMetrics& metrics)
{
    constexpr int MostCharacters = 80;
    int width = 0;
    for (const QString& line : text.split(QLatin1Char('\n')))
        width = std::max(width, metrics.horizontalAdvance(line));
    return std::min(width, metrics.averageCharWidth() * MostCharacters);
}

} // namespace

QuestionDialog::QuestionDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::QuestionDialogBase>())
{
    m_ui->setupUi(this);
    if (parent)
        setWindowTitle(parent->windowTitle());
    m_ui->labelPixmap->hide();
    for (int number = 0; number < 3; ++number) {
        connect(pushButtons(*m_ui)[std::size_t(number)], &QPushButton::clicked, this,
                [this, number] { done(number); });
        connect(toolButtons(*m_ui)[std::size_t(number)], &QToolButton::clicked, this,
                [this, number] { done(number); });
        setButton(number, QString(), QPixmap());
    }
    setDefaultResult(0);
}

QuestionDialog::~QuestionDialog() = default;

int QuestionDialog::question(QWidget* parent, const QString& text, const QPixmap& pixmap,
                             const QString& text0, const QPixmap& pixmap0, const QString& text1,
                             const QPixmap& pixmap1, const QString& text2, const QPixmap& pixmap2,
                             int defaultResult)
{
    QuestionDialog dialog(parent);
    dialog.setQuestion(text, pixmap);
    dialog.setButton(0, text0, pixmap0);
    dialog.setButton(1, text1, pixmap1);
    dialog.setButton(2, text2, pixmap2);
    dialog.setDefaultResult(defaultResult);
    return dialog.exec();
}

void QuestionDialog::setQuestion(const QString& text, const QPixmap& pixmap)
{
    m_ui->labelText->setText(text);
    m_ui->labelText->setMinimumWidth(widthFor(text, m_ui->labelText->fontMetrics()));
    m_ui->labelPixmap->setPixmap(pixmap);
    m_ui->labelPixmap->setVisible(!pixmap.isNull());
}

void QuestionDialog::setButton(int number, const QString& text, const QPixmap& pixmap)
{
    const bool shown = number == 0 || !text.isEmpty();
    QPushButton* const button = pushButtons(*m_ui)[std::size_t(number)];
    button->setText(text);
    button->setVisible(shown);
    QToolButton* const picture = toolButtons(*m_ui)[std::size_t(number)];
    picture->setIcon(QIcon(pixmap));
    picture->setIconSize(naturalSize(pixmap));
    picture->setAccessibleName(text.trimmed());
    picture->setVisible(shown && !pixmap.isNull());
}

void QuestionDialog::setDefaultResult(int number)
{
    if (number < 0 || number > 2)
        return;
    m_defaultResult = number;
    QPushButton* const button = pushButtons(*m_ui)[std::size_t(number)];
    button->setDefault(true);
    if (!button->isHidden())
        button->setFocus();
}

void QuestionDialog::reject()
{
    done(m_defaultResult);
}
