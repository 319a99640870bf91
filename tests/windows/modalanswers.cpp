#include "modalanswers.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QProgressDialog>

#include <gtest/gtest.h>

#include <utility>

namespace
{

ModalAnswers* innermost = nullptr;

} // namespace

ModalAnswers::ModalAnswers()
    : m_outer(std::exchange(innermost, this))
{
    QObject::connect(&m_timer, &QTimer::timeout, [this] { answerNext(); });
    m_timer.start(10);
}

ModalAnswers::~ModalAnswers()
{
    innermost = m_outer;
    EXPECT_EQ(m_answers.size(), 0u) << "boxes that were expected did not come; seen: "
                                    << m_seen.join(QStringLiteral("; ")).toStdString();
    EXPECT_EQ(m_unexpected, 0) << "unexpected boxes; seen: "
                               << m_seen.join(QStringLiteral("; ")).toStdString();
}

void ModalAnswers::press(QMessageBox::StandardButton button)
{
    answer([button](QWidget* window) {
        auto* const box = qobject_cast<QMessageBox*>(window);
        if (box && box->button(button))
            return box->button(button)->click();
        ADD_FAILURE() << "not a message box with that button: " << window->metaObject()->className();
        window->close();
    });
}

void ModalAnswers::chooseFile(const QString& path)
{
    answer([path](QWidget* window) {
        auto* const dialog = qobject_cast<QFileDialog*>(window);
        auto* const edit = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
        if (!edit) {
            ADD_FAILURE() << "not a file dialog: " << window->metaObject()->className();
            window->close();
            return;
        }
        edit->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
    });
}

void ModalAnswers::reject()
{
    answer([](QWidget* window) { window->close(); });
}

void ModalAnswers::answer(std::function<void(QWidget*)> action)
{
    m_answers.push_back(std::move(action));
}

void ModalAnswers::answerNext()
{
    QWidget* const window = QApplication::activeModalWidget();
    if (innermost != this || !window || qobject_cast<QProgressDialog*>(window))
        return;
    record(window);
    if (m_answers.empty()) {
        ++m_unexpected;
        window->close();
        return;
    }
    const auto action = m_answers.front();
    m_answers.pop_front();
    action(window);
}

void ModalAnswers::record(QWidget* window)
{
    QString text;
    if (const auto* box = qobject_cast<QMessageBox*>(window))
        text = box->text();
    else if (const auto* dialog = qobject_cast<QFileDialog*>(window))
        text = dialog->directory().path();
    m_seen << window->windowTitle() + QLatin1Char('|') + text;
}
