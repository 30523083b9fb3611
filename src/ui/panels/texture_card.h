#pragma once

#include "model/texture_asset.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <optional>

class QHBoxLayout;
class QMimeData;

namespace quarlin {

class Button;
class PictureView;
class TextLabel;

/// The texts and the symbol of a texture card.
struct TextureCardTexts {
    QString symbol;
    QString title;
    /// Shows the "Required" badge.
    bool required;
    /// Tooltip of the whole card.
    QString help;
    /// What the texture is called in "Remove …" and "Replace …".
    QString subject;
};

/// One input of a tool: its name, and either the texture that is loaded, with the ways to replace and remove
/// it, or a button to choose one. Image files can be dropped anywhere on it.
class TextureCard : public QWidget {
    Q_OBJECT

public:
    /// Takes dropped data and returns whether it could be used.
    using DropHandler = std::function<bool(const QMimeData&)>;

    TextureCard(const TextureCardTexts& texts, DropHandler drop, QWidget* parent = nullptr);

    /// Shows `asset`, or the button to choose one.
    void setAsset(const std::optional<TextureAsset>& asset);

    /// Gives the keyboard to the button that chooses a texture.
    void takeFocus();

    /// Whether files are being dragged over the card.
    bool isDropTarget() const { return m_isDropTarget; }

Q_SIGNALS:
    void chooseRequested();
    void removeRequested();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QHBoxLayout* titleRow(const TextureCardTexts& texts);
    QWidget* loadedBody(const TextureCardTexts& texts);
    void setDropTarget(bool isTarget);

    DropHandler m_drop;
    bool m_isDropTarget = false;
    Button* m_remove;
    QWidget* m_loaded;
    PictureView* m_thumbnail;
    TextLabel* m_fileName;
    TextLabel* m_size;
    Button* m_replace;
    Button* m_choose;
};

}  // namespace quarlin
