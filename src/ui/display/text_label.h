#pragma once

#include "ui/style/typography.h"

#include <QLabel>

namespace quarlin {

/// How prominent a text is.
enum class TextWeight { primary, secondary };

/// One line of plain text in a step of the type scale. A text that does not fit is drawn with slightly
/// narrower letters, or else shortened in the middle: then the whole text is shown as the tooltip.
class TextLabel : public QLabel {
    Q_OBJECT

public:
    TextLabel(const QString& text, TextStyle style, TextWeight weight = TextWeight::primary,
              QWidget* parent = nullptr);

    /// Lets the label become narrower than its text.
    void setElided(bool elided);

    /// Extra space after each letter, in device-independent pixels.
    void setTracking(double tracking);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void applyFont();

    TextStyle m_style;
    TextWeight m_weight;
    bool m_elided = false;
    double m_tracking = 0;
};

}  // namespace quarlin
