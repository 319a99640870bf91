#pragma once

#include "jsonvalues.h"

#include "kirostring.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>
#include <QTemporaryDir>

#include <optional>
#include <string>

/// Whole content of a regular file.
std::optional<QByteArray> readWhole(const QString& path);

/// Hexadecimal digits of the SHA-256 of `bytes`.
std::string sha256(const QByteArray& bytes);

/// Compares the keys "size" and "sha256" that `wanted` holds. Another hash is found together with the
/// first byte that differs from the content of `fullResultPath`, where such a file is.
Verdict compareContent(const QJsonObject& wanted, const QByteArray& found,
                       const QString& fullResultPath = QString());

/// A writable copy of a file that goes away with the object. Throws std::runtime_error without one.
class TemporaryCopy
{
public:
    explicit TemporaryCopy(const QString& original);
    QString path() const { return m_folder.filePath(QStringLiteral("copy")); }
    KiroString corePath() const { return KiroString(path()); }
    /// Present content.
    QByteArray bytes() const;

private:
    QTemporaryDir m_folder;
};
