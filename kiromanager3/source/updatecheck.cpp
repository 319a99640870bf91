#include "updatecheck.h"

#include "inistore.h"

#include <QStringList>

namespace
{

const QLatin1String ListSection("KiroManager");
const QLatin1String ListKey("MAIN");
const QLatin1Char Point('.');

/// A server is a host, with or without scheme and port.
QUrl serverUrl(const QString& server, const QString& path)
{
    const QString scheme = server.contains(QStringLiteral("://")) ? QString() : QStringLiteral("http://");
    QUrl url(scheme + server);
    url.setPath(path);
    return url;
}

} // namespace

UpdateOffer UpdateOffer::fromReply(const QString& reply, const QString& ownVersion)
{
    IniStore store;
    store.parse(reply);
    if (!store.hasKey(ListSection, ListKey))
        return UpdateOffer();
    const QString version =
        store.value(ListSection, ListKey, QStringLiteral("invalid_version_value")).simplified();
    if (!version.contains(Point))
        return UpdateOffer();
    const bool newer = versionNumber(version) > versionNumber(ownVersion);
    return {newer ? Kind::Newer : Kind::Nothing, version};
}

qint64 versionNumber(const QString& version)
{
    const QStringList parts = version.split(Point);
    return qint64(100) * parts.value(0).toInt() + parts.value(1).toInt();
}

QString updateServer(const IniStore& settings)
{
    const QString server =
        settings.value(QStringLiteral("GENERAL"), QStringLiteral("update_server"), QString()).trimmed();
    return server.isEmpty() ? QStringLiteral(KIRO_UPDATE_SERVER) : server;
}

QNetworkRequest updateRequest(const QString& server)
{
    constexpr int MostRedirects = 5;
    constexpr int TimeoutMs = 30000;
    QNetworkRequest request(serverUrl(server, QStringLiteral("/files/mwk_software_versions.txt")));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(MostRedirects);
    request.setTransferTimeout(TimeoutMs);
    // Packed, a short reply could be a very long text.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

QUrl updateSetupUrl(const QString& server, const QString& version)
{
    QString digits = version;
    digits.remove(Point);
    return serverUrl(server, QStringLiteral("/files/kiromanager_setup_%1.exe").arg(digits));
}
