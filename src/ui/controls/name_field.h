#pragma once

#include <QLineEdit>

namespace quarlin {

/// The field that a material is named in.
class NameField : public QLineEdit {
    Q_OBJECT

public:
    explicit NameField(QWidget* parent = nullptr);

    /// Shows `name`. A name that is shown already leaves cursor, selection and undo history alone.
    void showName(const QString& name);

protected:
    bool event(QEvent* event) override;
};

}  // namespace quarlin
