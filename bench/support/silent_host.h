#pragma once
// A main window for the benchmarks that shows nothing: the models run as in the program, and every
// notification to the view is dropped. The child windows count as loaded, so the models take the
// paths they take in the running program.

#include "shell/main_form.h"

namespace tallymere::bench {

class SilentHost : public shell::MainFormHost {
public:
    void showSplash(bool) override {}
    void menusChanged() override {}
    void captionChanged() override {}
    void barsChanged() override {}
    void activeDateChanged() override {}
    void showChild(std::string_view) override {}
    bool isChildLoaded(std::string_view) override { return true; }
    shell::WindowPlace childPlace(std::string_view) override { return {}; }
    shell::WindowPlace mainPlace() override { return {}; }
    void refreshActiveChild() override {}
    void updailyflexform() override {}
    void UpDailyGridUpEmpl() override {}
};

}  // namespace tallymere::bench
