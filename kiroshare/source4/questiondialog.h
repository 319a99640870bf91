#pragma once

#include <QDialog>
#include <QPixmap>

#include <memory>

namespace Ui
{
class QuestionDialogBase;
}

/// A question with up to three answers, each a button over the width of the dialog.
class QuestionDialog : public QDialog
{
    Q_OBJECT

public:
    explicit QuestionDialog(QWidget* parent = nullptr);
    ~QuestionDialog() override;

    /// Asks and gives the number of the pressed button, 0 to 2. Buttons 1 and 2 are there only with a text.
    /// `pixmap` stands beside the question and the others beside their buttons, each where it is not null.
    /// Leaving the dialog gives `defaultResult`, whose button is the preselected one; outside of 0 to 2 it is
    /// ignored, which gives 0. The title is that of `parent`.
    static int question(QWidget* parent, const QString& text, const QPixmap& pixmap, const QString& text0,
                        const QPixmap& pixmap0, const QString& text1, const QPixmap& pixmap1,
                        const QString& text2, const QPixmap& pixmap2, int defaultResult);

    void setQuestion(const QString& text, const QPixmap& pixmap);
    /// `number` is 0 to 2.
    void setButton(int number, const QString& text, const QPixmap& pixmap);
    /// Ignored outside of 0 to 2.
    void setDefaultResult(int number);

public slots:
    /// Leaves the dialog with the default result.
    void reject() override;

private:
    std::unique_ptr<Ui::QuestionDialogBase> m_ui;
    int m_defaultResult = 0;
};
