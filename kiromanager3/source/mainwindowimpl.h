#pragma once

#include <QWidget>

#include <memory>

namespace Ui
{
class MainWindowBase;
}

/// The launcher: the program's first window.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    void muteExplanation();

    std::unique_ptr<Ui::MainWindowBase> m_ui;
};
