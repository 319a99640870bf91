#include "separatordlg.h"

#include "messages.h"

#include "ui_separatordlg.h"

#include <QPushButton>

#include <algorithm>
#include <iterator>

namespace
{

/// The separators by code.
constexpr char Known[] = {' ', ',', ':', ';', '\t'};

/// Code of a separator, or that behind the last known one.
int codeOf(const QString& separator)
{
    const auto* const found = std::find_if(std::begin(Known), std::end(Known), [&](char known) {
        return separator == QString(QLatin1Char(known));
    });
    return int(found - std::begin(Known));
}

} // namespace

SeparatorDlg::SeparatorDlg(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::SeparatorDlgBase>())
{
    static_assert(std::size(Known) == KnownCount);
    m_ui->setupUi(this);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setDefault(true);
    setSeparator(QStringLiteral("\t"));
}

SeparatorDlg::~SeparatorDlg() = default;

std::array<QRadioButton*, SeparatorDlg::KnownCount + 1> SeparatorDlg::radios() const
{
    return {m_ui->radioSpace,     m_ui->radioComa, m_ui->radioColon,
            m_ui->radioSemicolon, m_ui->radioTab,  m_ui->radioCustom};
}

int SeparatorDlg::checkedCode() const
{
    const auto buttons = radios();
    const auto* const checked =
        std::find_if(buttons.begin(), buttons.end(), [](QRadioButton* radio) { return radio->isChecked(); });
    return int(checked - buttons.begin());
}

void SeparatorDlg::setSeparator(const QString& separator)
{
    m_code = codeOf(separator);
    m_custom = m_code == CustomCode ? separator : QString();
    m_ui->editCustom->setText(m_custom);
    QRadioButton* const radio = radios()[std::size_t(m_code)];
    radio->setChecked(true);
    radio->setFocus();
}

QString SeparatorDlg::separator() const
{
    return m_code == CustomCode ? m_custom : QString(QLatin1Char(Known[m_code]));
}

QString SeparatorDlg::separatorName(const QString& separator)
{
    if (separator == QStringLiteral(" "))
        return tr("space");
    if (separator == QStringLiteral("\t"))
        return tr("tab");
    return separator;
}

void SeparatorDlg::on_editCustom_textEdited()
{
    m_ui->radioCustom->setChecked(true);
}

void SeparatorDlg::on_radioCustom_clicked()
{
    m_ui->editCustom->setFocus();
    m_ui->editCustom->selectAll();
}

void SeparatorDlg::on_buttonBox_accepted()
{
    const int code = checkedCode();
    const QString custom = m_ui->editCustom->text();
    if (code == CustomCode && custom.isEmpty()) {
        showWarning(this, tr("Separator selection"), tr("The custom separator has not been entered!"));
        m_ui->editCustom->setFocus();
        return;
    }
    m_code = code;
    m_custom = code == CustomCode ? custom : QString();
    accept();
}
