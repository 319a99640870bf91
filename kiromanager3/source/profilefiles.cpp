#include "profilefiles.h"

#include "filechoice.h"
#include "messages.h"

#include <QFileDialog>

ProfileFiles::ProfileFiles(QWidget* dialog, const Texts& texts)
    : m_dialog(dialog)
    , m_texts(texts)
{
}

void ProfileFiles::setFolder(const QString& folder)
{
    m_loadFolder = folder;
    m_saveFolder = folder;
}

QString ProfileFiles::chooseForLoading()
{
    QString path = QFileDialog::getOpenFileName(m_dialog, m_texts.loadTitle, m_loadFolder, m_texts.filter);
    if (!path.isEmpty())
        m_loadFolder = QFileInfo(path).path();
    return path;
}

QString ProfileFiles::chooseForSaving()
{
    QString selectedFilter;
    const QString chosen = QFileDialog::getSaveFileName(m_dialog, m_texts.saveTitle, m_saveFolder,
                                                        m_texts.filter, &selectedFilter);
    if (chosen.isEmpty())
        return QString();
    m_saveFolder = QFileInfo(chosen).path();
    const QString path = withSuffix(chosen, selectedFilter);
    // The file dialog has asked about the name that was chosen, not about this one.
    const bool unasked = path != chosen && QFileInfo::exists(path);
    return unasked && !mayReplace(m_dialog, path) ? QString() : path;
}

QString ProfileFiles::withSuffix(const QString& path, const QString& selectedFilter) const
{
    const bool ofSuffix = selectedFilter.contains(QStringLiteral("*.") + m_texts.suffix);
    if (!ofSuffix || !QFileInfo(path).suffix().isEmpty())
        return path;
    return path + QLatin1Char('.') + m_texts.suffix;
}

void ProfileFiles::tellLoadingFailed(const QString& path) const
{
    showWarning(m_dialog, tr("Failed to load parameters from file %1").arg(path));
}

void ProfileFiles::tellSavingFailed(const QString& path) const
{
    showWarning(m_dialog, tr("Failed to save parameters from file %1").arg(path));
}
