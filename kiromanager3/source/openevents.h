#pragma once

#include <QEvent>
#include <QString>

/// An event that carries the path of a file to open. The base of the three below.
class FilePathEvent : public QEvent
{
public:
    const QString& path() const { return m_path; }

protected:
    FilePathEvent(QEvent::Type type, const QString& path)
        : QEvent(type)
        , m_path(path)
    {
    }

private:
    QString m_path;
};

/// To the launcher: open a recording in a new signals browser.
class OpenKiroFileEvent : public FilePathEvent
{
public:
    static constexpr QEvent::Type Number = QEvent::Type(1001);

    explicit OpenKiroFileEvent(const QString& path)
        : FilePathEvent(Number, path)
    {
    }
};

/// To the launcher: open a saccade file in a new saccades browser.
class OpenSaccFileEvent : public FilePathEvent
{
public:
    static constexpr QEvent::Type Number = QEvent::Type(1002);

    explicit OpenSaccFileEvent(const QString& path)
        : FilePathEvent(Number, path)
    {
    }
};

/// To the window of a module: open this file.
class OpenFileEvent : public FilePathEvent
{
public:
    static constexpr QEvent::Type Number = QEvent::Type(1003);

    explicit OpenFileEvent(const QString& path)
        : FilePathEvent(Number, path)
    {
    }
};
