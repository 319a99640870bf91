#pragma once

#include <QWidget>

/// The signals browser: the signals of one recording.
class ReviewFrame : public QWidget
{
    Q_OBJECT

public:
    explicit ReviewFrame(QWidget* parent = nullptr);

    /// Name of its section in the settings file.
    static QString section() { return QStringLiteral("SIGNALS_REVIEW"); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void customEvent(QEvent* event) override;
};
