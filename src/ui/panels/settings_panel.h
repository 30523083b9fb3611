#pragma once

#include "model/output_resolution.h"
#include "model/set_file.h"
#include "ui/controls/name_field.h"
#include "ui/controls/segmented_picker.h"
#include "ui/controls/slider_row.h"
#include "ui/controls/stepper_row.h"
#include "ui/controls/toggle.h"
#include "ui/layout/group_box.h"
#include "ui/layout/scroll_panel.h"
#include "ui/panels/store_observer.h"

#include <QVBoxLayout>

#include <functional>
#include <vector>

namespace quarlin {

using namespace Qt::StringLiterals;

class Button;

/// The middle column of a tool, as a list of groups of controls.
class SettingsPanel : public ScrollPanel {
    Q_OBJECT

public:
    explicit SettingsPanel(const QString& heading, QWidget* parent = nullptr);

protected:
    /// Adds a group under the others; its rows are `spacing` apart.
    GroupBox* addGroup(const QString& title, int spacing);

    /// Adds `picker` behind its label.
    static void addLabeled(GroupBox& group, const QString& label, QWidget* picker);

    /// Adds the row of the two actions to `group`.
    void addActions(GroupBox& group);

    /// Keeps the groups at the top of the column.
    void closeColumn();

    Button* previewButton() const { return m_preview; }
    Button* exportButton() const { return m_export; }

private:
    Button* m_preview = nullptr;
    Button* m_export = nullptr;
};

/// A settings panel whose controls are bound to the fields of a store's settings: an edit is written into the
/// store at once, and the store's settings are shown whenever it has changed.
template <typename Store, typename Settings>
class BoundSettingsPanel : public SettingsPanel {
protected:
    BoundSettingsPanel(Store& store, const QString& heading) : SettingsPanel(heading), m_store(store) {}

    void addNameField(GroupBox& group, QString Settings::*field) {
        auto* control = new NameField;
        group.rows()->addWidget(control);
        bind(control, field, &NameField::textEdited, &NameField::showName);
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
            write(field, allCases<OutputResolution>()[static_cast<std::size_t>(index)]);
        });
        m_shows.push_back([control, field](const Settings& settings) {
            control->setCurrentIndex(static_cast<int>(settings.*field));
        });
    }

    void addToggle(GroupBox& group, const QString& title, bool Settings::*field) {
        auto* control = new Toggle(title);
        group.rows()->addWidget(control);
        bind(control, field, &Toggle::clicked, &Toggle::setChecked);
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

    /// Shows the settings from now on, and calls `redraw` with them for whatever else the panel shows.
    void observe(std::function<void()> redraw) {
        new StoreObserver(
            m_store,
            [this, redraw = std::move(redraw)] {
                for (const auto& showField : m_shows) {
                    showField(m_store.settings());
                }
                redraw();
            },
            this);
    }

private:
    template <typename Value>
    void write(Value Settings::*field, const Value& value) {
        Settings settings = m_store.settings();
        settings.*field = value;
        m_store.setSettings(settings);
    }

    /// Joins a control and a field: `edited` is the control's signal, `setter` the way to set it.
    template <typename Control, typename Value, typename Edited, typename Setter>
    void bind(Control* control, Value Settings::*field, Edited edited, Setter setter) {
        connect(control, edited, this, [this, field](const Value& value) { write(field, value); });
        m_shows.push_back(
            [control, field, setter](const Settings& settings) { (control->*setter)(settings.*field); });
    }

    Store& m_store;
    std::vector<std::function<void(const Settings&)>> m_shows;
};

}  // namespace quarlin
