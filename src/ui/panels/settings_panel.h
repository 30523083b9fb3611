#pragma once

#include "model/output_resolution.h"
#include "model/set_file.h"
#include "ui/controls/name_field.h"
#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper_row.h"
#include "ui/layout/group_box.h"
#include "ui/layout/scroll_panel.h"
#include "ui/panels/observe.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include <functional>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

class ToolActions;

/// The middle column of a tool, as a list of groups of controls.
class SettingsPanel : public ScrollPanel {
    Q_OBJECT

public:
    explicit SettingsPanel(const QString& heading, QWidget* parent = nullptr);

protected:
    /// Adds a group under the others; its rows are `spacing` apart.
    GroupBox* addGroup(const QString& title, int spacing);

    /// Adds `picker` after its label.
    static void addLabeled(GroupBox& group, const QString& label, QWidget* picker);

    /// Adds a row with the buttons for preview and export to `group`.
    static void addActions(GroupBox& group, ToolActions& actions);

    /// Keeps the groups at the top of the column.
    void closeColumn();
};

/// A settings panel whose controls are bound to the fields of a store's settings: an edit, whether by mouse,
/// keyboard or assistive technology, is written into the store at once, and the store's settings are shown
/// whenever it has changed.
template <typename Store, typename Settings>
class BoundSettingsPanel : public SettingsPanel {
protected:
    BoundSettingsPanel(Store& store, const QString& heading) : SettingsPanel(heading), m_store(store) {}

    void addNameField(GroupBox& group, QString Settings::*field) {
        auto* control = new NameField;
        group.rows()->addWidget(control);
        bind(control, field, &NameField::textChanged, &NameField::showName);
    }

    void addSizePicker(GroupBox& group, OutputResolution Settings::*field) {
        QStringList titles;
        for (const OutputResolution resolution : allCases<OutputResolution>()) {
            titles += title(resolution);
        }
        const QString label = u"Output Size"_s;
        auto* control = new SegmentedPicker(label, titles);
        addLabeled(group, label, control);
        connect(control, &SegmentedPicker::chosen, this, [this, field](int index) {
            edit(field, allCases<OutputResolution>()[static_cast<std::size_t>(index)]);
        });
        m_shows.push_back([control, field](const Settings& settings) {
            control->setCurrentIndex(static_cast<int>(settings.*field));
        });
    }

    void addToggle(GroupBox& group, const QString& title, bool Settings::*field) {
        auto* control = new QCheckBox(title);
        // Only as wide as its title: a click in the rest of the row does nothing.
        group.rows()->addWidget(control, 0, Qt::AlignLeft);
        bind(control, field, &QCheckBox::toggled, &QCheckBox::setChecked);
    }

    /// Adds a toggle for each file of a set that has a switch.
    template <typename File>
    void addFileToggles(GroupBox& group) {
        for (const SetFile<Settings>& file : EnumerationTable<File>::rows) {
            if (file.isExported != nullptr) {
                addToggle(group, file.toggle, file.isExported);
            }
        }
    }

    void addSlider(GroupBox& group, SliderRow* control, double Settings::*field) {
        group.rows()->addWidget(control);
        bind(control, field, &SliderRow::valueEdited, &SliderRow::setValue);
    }

    void addPercentage(GroupBox& group, const QString& title, double Settings::*field) {
        addSlider(group, SliderRow::percentage(title), field);
    }

    void addStepper(GroupBox& group, StepperRow* control, int Settings::*field) {
        group.rows()->addWidget(control);
        bind(control, field, &StepperRow::valueEdited, &StepperRow::setValue);
    }

    /// Shows the settings from now on.
    void showSettings() {
        observe(this, m_store, [this] {
            // A control reports what it is told to show as well; that is no edit.
            m_isShowing = true;
            for (const auto& showField : m_shows) {
                showField(m_store.settings());
            }
            m_isShowing = false;
        });
    }

private:
    template <typename Value>
    void edit(Value Settings::*field, const Value& value) {
        if (m_isShowing) {
            return;
        }
        Settings settings = m_store.settings();
        settings.*field = value;
        m_store.setSettings(settings);
    }

    /// Connects a control with a field: `edited` is the signal of its changes, `setter` shows a value.
    template <typename Control, typename Value, typename Edited, typename Setter>
    void bind(Control* control, Value Settings::*field, Edited edited, Setter setter) {
        connect(control, edited, this, [this, field](const Value& value) { edit(field, value); });
        m_shows.push_back(
            [control, field, setter](const Settings& settings) { (control->*setter)(settings.*field); });
    }

    Store& m_store;
    bool m_isShowing = false;
    std::vector<std::function<void(const Settings&)>> m_shows;
};

}  // namespace quarlin
