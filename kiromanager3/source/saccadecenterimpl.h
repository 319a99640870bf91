#pragma once

#include <QWidget>

/// The saccades browser: the saccades and blinks of one recording.
class SaccadeCenter : public QWidget
{
    Q_OBJECT

public:
    explicit SaccadeCenter(QWidget* parent = nullptr);

    /// Name of its section in the settings file.
    static QString section() { return QStringLiteral("SACCADE_CENTER"); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
};
