#pragma once

#include "ui/display/text_label.h"

namespace quarlin {

/// A short text on a capsule.
class Badge : public TextLabel {
    Q_OBJECT

public:
    explicit Badge(const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin
