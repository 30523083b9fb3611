#pragma once

#include "ui/layout/scroll_panel.h"
#include "view3d/scene/scene_look.h"

#include <functional>
#include <vector>

namespace quarlin {

class GroupBox;
struct ValueRange;

/// The controls for how the material is shown.
class LookPanel : public ScrollPanel {
    Q_OBJECT

public:
    /// Shows `look`, and changes it as the user edits.
    explicit LookPanel(SceneLook& look, QWidget* parent = nullptr);

    /// Shows the look again after it was changed elsewhere.
    void showLook();

Q_SIGNALS:
    /// The user has changed the look.
    void edited();

private:
    GroupBox* addGroup(const QString& title);

    template <typename Enum>
    void addPicker(GroupBox& group, const QString& label, Enum SceneLook::*field);
    void addSlider(GroupBox& group, const QString& title, const ValueRange& range,
                   std::function<QString(double)> format, double SceneLook::*field);
    void addTiling(GroupBox& group);

    SceneLook& m_look;
    std::vector<std::function<void()>> m_shows;
};

}  // namespace quarlin
