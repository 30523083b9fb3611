#pragma once

#include <QPushButton>
#include <QString>

namespace quarlin {

/// How prominent a button is: one of several actions, the main one, or without a frame until it is
/// pointed at.
enum class ButtonStyle { bordered, prominent, borderless };

/// A button with a symbol, next to its text if it has one.
class Button : public QPushButton {
    Q_OBJECT

public:
    /// A button that shows `symbol` and `text`, in which "&" marks the mnemonic.
    Button(ButtonStyle style, const QString& symbol, const QString& text, QWidget* parent = nullptr);

    /// A bare symbol; `help` is its tooltip and its accessible name.
    static Button* symbolOnly(const QString& symbol, const QString& help, QWidget* parent = nullptr);

    /// Marks the button with a dot, for the reason `reason`; an empty one removes the mark.
    void setMark(const QString& reason);
    bool isMarked() const { return m_isMarked; }

    QString symbol() const { return icon().name(); }
    ButtonStyle buttonStyle() const { return m_style; }

protected:
    void initStyleOption(QStyleOptionButton* option) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    ButtonStyle m_style;
    bool m_isMarked = false;
};

}  // namespace quarlin
