#pragma once

#include "mainwindowimpl.h"

#include "appconfig.h"
#include "support/recordingbuilder.h"
#include "windows/messagerecorder.h"

#include <QApplication>
#include <QtTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// A shown launcher with settings of its own. Any message of Qt on the way fails the test; windows that are
/// left are destroyed.
class LauncherFixture : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(appConfig().setConfigFile(m_folder.path(QStringLiteral("k.ini"))));
        ASSERT_TRUE(appConfig().setLogFile(m_folder.path(QStringLiteral("k.txt"))));
        m_window = std::make_unique<MainWindow>();
        m_window->show();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_window.get()));
    }
    void TearDown() override
    {
        m_window.reset();
        qDeleteAll(shownWindows());
        EXPECT_EQ(MessageRecorder::texts(), QStringList());
    }

    static QWidgetList shownWindows()
    {
        QWidgetList windows;
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->isVisible())
                windows.append(widget);
        }
        return windows;
    }
    /// Titles of all shown windows but the launcher's, sorted, with "; " between.
    static std::string moduleTitles()
    {
        QStringList titles;
        for (const QWidget* widget : shownWindows()) {
            if (!qobject_cast<const MainWindow*>(widget))
                titles.append(widget->windowTitle());
        }
        titles.sort();
        return titles.join(QStringLiteral("; ")).toStdString();
    }
    /// Handles what was posted, and what is posted by that.
    static void handleEvents()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    void writeSettings(const std::string& text) const { m_folder.write(QStringLiteral("k.ini"), text); }
    std::string settings() const { return fileBytes(appConfig().configFile().toLocal8Bit().constData()); }
    /// Makes a file; its path.
    QString makeFile(const char* name) const
    {
        m_folder.write(QString::fromUtf8(name), "content");
        return m_folder.path(QString::fromUtf8(name));
    }

    TestFolder m_folder;
    MessageRecorder m_recorder;
    std::unique_ptr<MainWindow> m_window;
};
