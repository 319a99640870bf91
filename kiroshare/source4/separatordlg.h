#pragma once

#include <QDialog>
#include <QString>

#include <array>
#include <memory>

class QRadioButton;

namespace Ui
{
class SeparatorDlgBase;
}

/// Asks for the text that stands between the fields of a text file.
class SeparatorDlg : public QDialog
{
    Q_OBJECT

public:
    /// The separator is a tab until it is set.
    explicit SeparatorDlg(QWidget* parent = nullptr);
    ~SeparatorDlg() override;

    /// Shows a separator: one of those on offer, or any other as the custom one.
    void setSeparator(const QString& separator);
    /// The separator that was set, or the chosen one once the dialog is accepted.
    QString separator() const;

    /// What to call a separator: "space", "tab", or its own text.
    static QString separatorName(const QString& separator);

private slots:
    void on_buttonBox_accepted();
    void on_editCustom_textEdited();
    void on_radioCustom_clicked();

private:
    /// The codes of the separators that have their own radio button; one more stands for the custom text.
    static constexpr int KnownCount = 5;
    static constexpr int CustomCode = KnownCount;

    /// By code, the custom one last.
    std::array<QRadioButton*, KnownCount + 1> radios() const;
    int checkedCode() const;

    std::unique_ptr<Ui::SeparatorDlgBase> m_ui;
    int m_code = CustomCode;
    QString m_custom; ///< with CustomCode only
};
