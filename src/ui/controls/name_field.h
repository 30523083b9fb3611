#pragma once

#include <QLineEdit>

namespace quarlin {

/// The field that a material is named in.
class NameField : public QLineEdit {
    Q_OBJECT

public:
    explicit NameField(QWidget* parent = nullptr);

    /// Shows `name`. If it is shown already, cursor, selection and undo history are kept.
    void showName(const QString& name);

protected:
    bool event(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
};

}  // namespace quarlin
