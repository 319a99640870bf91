#pragma once

#include <QNetworkRequest>
#include <QString>
#include <QUrl>

class IniStore;

/// What the update server has on offer. Its reply is a text in the form of the settings file.
struct UpdateOffer
{
    enum class Kind {
        Invalid, ///< the reply names no version
        Nothing, ///< the own version is the newest
        Newer,
    };

    Kind kind = Kind::Invalid;
    QString version; ///< as the server writes it, without blanks around it; empty if invalid

    /// Reads the value of "MAIN" in section "KiroManager" of the reply. A valid one has a point in it; of two
    /// versions the one with the greater number is newer.
    static UpdateOffer fromReply(const QString& reply, const QString& ownVersion);
};

/// Of "3.12", 312: a hundred times the first part and the second; a part that is no number counts 0.
qint64 versionNumber(const QString& version);

/// The update server as the settings name it by "update_server" in section "GENERAL", or the one that the
/// program was built for.
QString updateServer(const IniStore& settings);

/// The request for the list of versions. It follows redirects, but not from https to http, and ends when
/// nothing comes for 30 seconds.
QNetworkRequest updateRequest(const QString& server);

/// Longer replies are no lists of versions.
constexpr qint64 UpdateReplyLimitBytes = 1 << 20;

/// Where a version's setup program is.
QUrl updateSetupUrl(const QString& server, const QString& version);
