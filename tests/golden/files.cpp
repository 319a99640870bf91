#include "files.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <stdexcept>

namespace
{

QString hexByte(const QByteArray& bytes, int position)
{
    if (position >= bytes.size())
        return QStringLiteral("the end");
    return QStringLiteral("0x") + QString::fromLatin1(bytes.mid(position, 1).toHex());
}

/// Where `found` leaves the full result, in brackets; empty if there is none or they are equal.
QString firstDifference(const QString& fullResultPath, const QByteArray& found)
{
    const std::optional<QByteArray> full =
        fullResultPath.isEmpty() ? std::nullopt : readWhole(fullResultPath);
    if (!full || *full == found)
        return QString();
    const int common = std::min(full->size(), found.size());
    const auto first = std::mismatch(full->begin(), full->begin() + common, found.begin()).first;
    const int position = static_cast<int>(first - full->begin());
    return QStringLiteral(" (first differing byte %1: wanted %2, found %3)")
        .arg(position)
        .arg(hexByte(*full, position), hexByte(found, position));
}

} // namespace

std::optional<QByteArray> readWhole(const QString& path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

std::string sha256(const QByteArray& bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
}

Verdict compareContent(const QJsonObject& wanted, const QByteArray& found, const QString& fullResultPath)
{
    Verdict verdict;
    const QJsonValue size = wanted.value(QLatin1String("size"));
    if (!size.isUndefined())
        append(verdict, at(QStringLiteral(".size"), compareNumber(size, toNumber(found.size()))));
    const QJsonValue hash = wanted.value(QLatin1String("sha256"));
    if (hash.isUndefined())
        return verdict;
    Verdict hashVerdict = at(QStringLiteral(".sha256"), compareText(hash, sha256(found)));
    for (Mismatch& mismatch : hashVerdict)
        mismatch.found += firstDifference(fullResultPath, found);
    append(verdict, hashVerdict);
    return verdict;
}

TemporaryCopy::TemporaryCopy(const QString& original)
{
    // A corpus may be read-only; its copy must not be.
    if (!m_folder.isValid() || !QFile::copy(original, path()) ||
        !QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner))
        throw std::runtime_error("cannot make a temporary copy of " + original.toStdString());
}

QByteArray TemporaryCopy::bytes() const
{
    const std::optional<QByteArray> content = readWhole(path());
    if (!content)
        throw std::runtime_error("cannot read back the temporary copy");
    return *content;
}
