#pragma once

#include "ui/controls/text_label.h"

namespace quarlin {

/// A short word on a capsule.
class Badge : public TextLabel {
    Q_OBJECT

public:
    explicit Badge(const QString& text, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace quarlin
