#pragma once

#include <QString>

/// Where the program keeps its settings, its view states and its message log, and what all windows share.
///
/// The program has one object of this class, appConfig(); it settles at start-up and does not change
/// afterwards. Every path has been tried out: a file that stands there opens for reading and writing, and
/// one that does not can be made.
class AppConfig
{
public:
    /// Paths are the bare file names, relative to the working folder, as far as files can be made there,
    /// else empty.
    AppConfig();

    const QString& configFile() const { return m_configFile; }   ///< settings
    const QString& signalsFile() const { return m_signalsFile; } ///< view state of each recording
    const QString& logFile() const { return m_logFile; }         ///< message log

    /// Takes `path` if the file there opens for reading and writing (its content is left alone) or, when
    /// there is none, can be made. None is left behind. False, and the old path stays, if not.
    bool setConfigFile(const QString& path);
    bool setSignalsFile(const QString& path);
    bool setLogFile(const QString& path);

    /// Takes the file's usual place in configFolder(). False, and the old path stays, if that cannot be used.
    bool useDefaultConfigFile();
    bool useDefaultSignalsFile();
    bool useDefaultLogFile();

    /// Keeps messages out of the log and lists audio formats.
    bool isDeveloperVersion() const { return m_developerVersion; }
    void setDeveloperVersion(bool on) { m_developerVersion = on; }

    /// Such as "3.12".
    QString version() const;

    /// Settings keys that several windows have in their sections.
    QString winMaxKey() const { return QStringLiteral("win_max"); }
    QString winPosKey() const { return QStringLiteral("win_pos"); }
    QString winSizeKey() const { return QStringLiteral("win_size"); }
    QString buttonUseLabelKey() const { return QStringLiteral("button_use_label"); }
    QString buttonShowFlatKey() const { return QStringLiteral("button_show_flat"); }

private:
    QString m_configFile;
    QString m_signalsFile;
    QString m_logFile;
    bool m_developerVersion = false;
};

/// The object of this process. Made by the first call, which must come after setlocale(), since it turns
/// names into the user's encoding; never destroyed, so that late messages and exit handlers can use it.
AppConfig& appConfig();

/// The folder of the default files, made if it is missing: "kiroconfig" within `base`, the system's place for
/// shared data, whose every "Local" becomes "Roaming" if it ends in "Local". `home` if it cannot be made.
QString configFolder(QString base, const QString& home);
