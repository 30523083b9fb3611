#pragma once

#include <QStringList>
#include <QWidget>

class QButtonGroup;

namespace quarlin {

/// One choice out of a few, side by side in one control. The arrow keys move the choice; Tab reaches the
/// control as a whole.
class SegmentedPicker : public QWidget {
    Q_OBJECT

public:
    /// Shows one segment per title. `label` names the control to assistive technology.
    SegmentedPicker(const QString& label, const QStringList& titles, QWidget* parent = nullptr);

    int currentIndex() const;
    /// Moves the choice without announcing it as the user's.
    void setCurrentIndex(int index);

Q_SIGNALS:
    /// The user has chosen the segment at `index`.
    void chosen(int index);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QButtonGroup* m_segments;
};

}  // namespace quarlin
