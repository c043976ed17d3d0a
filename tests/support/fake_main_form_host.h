#pragma once
// A main window that records what its model asked of it.

#include "shell/main_form.h"

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tallymere::testing {

class FakeMainFormHost : public shell::MainFormHost {
public:
    void showSplash(bool shown) override { calls.push_back(shown ? "splash on" : "splash off"); }
    void menusChanged() override { ++menuChanges; }
    void captionChanged() override { calls.push_back("caption"); }
    void barsChanged() override { calls.push_back("bars"); }
    void activeDateChanged() override { calls.push_back("date"); }
    void showChild(std::string_view windowName) override {
        calls.push_back("show " + std::string(windowName));
        loaded.insert(std::string(windowName));
    }
    bool isChildLoaded(std::string_view windowName) override { return loaded.count(std::string(windowName)) > 0; }
    shell::WindowPlace childPlace(std::string_view windowName) override { return places[std::string(windowName)]; }
    shell::WindowPlace mainPlace() override { return main; }
    void refreshActiveChild() override { calls.push_back("refresh"); }
    void updailyflexform() override { calls.push_back("updailyflexform"); }
    void UpDailyGridUpEmpl() override { calls.push_back("UpDailyGridUpEmpl"); }

    bool called(const std::string& call) const { return std::find(calls.begin(), calls.end(), call) != calls.end(); }

    std::vector<std::string> calls;
    int menuChanges = 0;
    std::set<std::string> loaded;
    std::map<std::string, shell::WindowPlace> places;
    shell::WindowPlace main{100, 200, 12000, 9000, 0};
};

}  // namespace tallymere::testing
