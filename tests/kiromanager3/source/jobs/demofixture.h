#pragma once

#include "demorecording.h"
#include "jobprogress.h"
#include "kiroreader.h"
#include "recordingbuilder.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// Demo recordings in a folder of the test's own.
class DemoTest : public testing::Test
{
protected:
    QString path() const { return m_folder.path(QStringLiteral("demo.kiro")); }
    QString truthPath() const { return m_folder.path(QStringLiteral("demo.json")); }
    QStringList files() const { return QDir(m_folder.path(QString())).entryList(QDir::Files | QDir::Hidden); }

    DemoResult make(double minutes = 1.0, std::uint32_t seed = 1) const
    {
        NoProgress progress;
        DemoOptions options;
        options.minutes = minutes;
        options.seed = seed;
        return makeDemoRecording(path(), options, progress);
    }

    std::string bytes() const { return fileBytes(KiroString(path())); }
    QJsonObject truth() const
    {
        QJsonParseError error;
        const std::string text = fileBytes(KiroString(truthPath()));
        const QJsonDocument document = QJsonDocument::fromJson(QByteArray::fromStdString(text), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString();
        return document.object();
    }
    QJsonArray events(const char* kind) const
    {
        const QJsonArray list = truth().value(QLatin1String(kind)).toArray();
        EXPECT_FALSE(list.isEmpty()) << kind;
        return list;
    }

    /// All samples of the signal with this full name, raw or calibrated.
    std::vector<double> samples(const char* name, bool calibrated = true) const
    {
        KiroReader reader;
        std::vector<double> result;
        EXPECT_TRUE(reader.setFile(KiroString(path())));
        EXPECT_TRUE(KiroReader::readSignal(KiroString(path()), reader.header().findSignal({name}), result,
                                           calibrated))
            << name;
        return result;
    }

    TestFolder m_folder;
};

inline double number(const QJsonValue& object, const char* key)
{
    const QJsonValue value = object[QLatin1String(key)];
    EXPECT_TRUE(value.isDouble()) << key;
    return value.toDouble();
}

inline std::size_t index(const QJsonValue& object, const char* key)
{
    return static_cast<std::size_t>(number(object, key));
}
