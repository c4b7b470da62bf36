// The settings window's content with fakes, and functions to find and use its controls.
#pragma once

#include "fakes/FakeAccessibility.h"
#include "fakes/FakeAlerts.h"
#include "fakes/FakeApplication.h"
#include "fakes/FakeApplicationCatalog.h"
#include "fakes/FakeBundle.h"
#include "fakes/FakeLoginItemService.h"
#include "fakes/FakePanels.h"
#include "fakes/FakeUserDefaults.h"
#include "fakes/FakeWorkspace.h"
#include "settings/SettingsView.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace haloric {

class SettingsViewFixture : public testing::Test {
protected:
    using Texts = std::vector<std::string>;

    SettingsViewFixture() { bundle.info["CFBundleIdentifier"] = "com.kestrow.haloric"; }

    SettingsViewDependencies platform()
    {
        return {.bundle = bundle,
                .applications = applications,
                .loginItems = loginItems,
                .accessibility = accessibility,
                .workspace = workspace,
                .panels = panels,
                .alerts = alerts,
                .application = application,
                .restart = [this] { ++restarts; }};
    }

    FormSection section(const std::string& id) const { return sectionOf(view->form(), id); }
    bool hasRow(const std::string& id) const { return findRow(view->form(), id).has_value(); }

    // The control of that row in the current form.
    template <class Control>
    Control control(const std::string& id) const
    {
        return controlOf<Control>(view->form(), id);
    }

    static FormSection sectionOf(const FormModel& form, const std::string& id)
    {
        for (const FormSection& section : form.sections)
            if (section.id == id)
                return section;
        throw std::out_of_range("no section " + id);
    }

    template <class Control>
    static Control controlOf(const FormModel& form, const std::string& id)
    {
        const auto row = findRow(form, id);
        if (!row)
            throw std::out_of_range("no row " + id);
        return std::get<Control>(row->control);
    }

    static std::vector<FormRow> allRows(const FormModel& form)
    {
        std::vector<FormRow> rows;
        for (const FormSection& section : form.sections)
            rows.insert(rows.end(), section.rows.begin(), section.rows.end());
        rows.insert(rows.end(), form.buttons.begin(), form.buttons.end());
        return rows;
    }

    static Texts idsOf(const std::vector<FormRow>& rows)
    {
        Texts ids;
        for (const FormRow& row : rows)
            ids.push_back(row.id);
        return ids;
    }

    template <class Edit>
    static Settings defaultsBut(Edit edit)
    {
        Settings settings;
        edit(settings);
        return settings;
    }

    FakeBundle bundle;
    FakeApplicationCatalog applications;
    FakeLoginItemService loginItems;
    FakeAccessibility accessibility;
    FakeWorkspace workspace;
    FakePanels panels;
    FakeAlerts alerts;
    FakeApplication application;
    FakeUserDefaults defaults;
    int restarts = 0;
    SettingsStore store{defaults};
    std::unique_ptr<SettingsView> view = std::make_unique<SettingsView>(platform(), store, false);

private:
    static std::optional<FormRow> findRow(const FormModel& form, const std::string& id)
    {
        for (FormRow& row : allRows(form))
            if (row.id == id)
                return std::move(row);
        return std::nullopt;
    }
};

} // namespace haloric
