#pragma once

#include <QCoreApplication>
#include <QString>

class QWidget;

/// The profiles of a dialog that loads its values from files and saves them: asks for the file, keeps the
/// folders of the last ones, and tells what went wrong.
class ProfileFiles
{
    Q_DECLARE_TR_FUNCTIONS(ProfileFiles)

public:
    /// What differs from dialog to dialog.
    struct Texts
    {
        QString loadTitle;
        QString saveTitle;
        QString filter; ///< of file dialogs; must hold "*." and the suffix
        QString suffix; ///< without the dot
    };

    /// The files of `dialog`, over which all questions and warnings show.
    ProfileFiles(QWidget* dialog, const Texts& texts);

    /// Where both questions start. Each keeps the folder of the file that was chosen last.
    void setFolder(const QString& folder);
    const QString& loadFolder() const { return m_loadFolder; }
    const QString& saveFolder() const { return m_saveFolder; }

    /// Path of the file to load; empty if none was chosen.
    QString chooseForLoading();
    /// Path of the file to save, which gets the suffix if it has none and the filter of that suffix was
    /// chosen; empty if none was chosen, or if a file of that name is to stay.
    QString chooseForSaving();

    void tellLoadingFailed(const QString& path) const;
    void tellSavingFailed(const QString& path) const;

private:
    QString withSuffix(const QString& path, const QString& selectedFilter) const;

    QWidget* m_dialog;
    Texts m_texts;
    QString m_loadFolder;
    QString m_saveFolder;
};
