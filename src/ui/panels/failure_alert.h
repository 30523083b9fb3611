#pragma once

#include <QString>
#include <QWidget>

namespace quarlin {

/// Announces failures to assistive technology. It cannot be seen: who sees the window reads the log.
class FailureAlert : public QWidget {
    Q_OBJECT

public:
    explicit FailureAlert(QWidget* parent);

    /// Announces `message`, also if it is the same as before.
    void announce(const QString& message);

    /// The last failure is no longer the latest news.
    void withdraw();
};

}  // namespace quarlin
