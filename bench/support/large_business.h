#pragma once
// A large business for the benchmarks: 250 active employees, positions, shifts and sections, and a
// year (or as many years as asked) of schedule entries in one schedule file, in a fresh database made
// from the template.

#include "common/session.h"

#include <filesystem>
#include <memory>

namespace tallymere::bench {

// A Ui that answers every message with its default and counts them.
class SilentUi : public common::Ui {
public:
    common::MsgAnswer message(std::string_view, common::MsgButtons, common::MsgIcon, std::string_view) override {
        ++messages;
        return common::MsgAnswer::Yes;
    }
    void showModal(std::string_view) override {}
    std::optional<std::string> chooseFolder(std::string_view, std::string_view) override { return std::nullopt; }
    std::optional<std::string> chooseOpenFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&) override {
        return std::nullopt;
    }
    std::optional<std::string> chooseSaveFile(std::string_view, std::string_view,
                                              const std::vector<common::FileFilter>&, bool) override {
        return std::nullopt;
    }
    void setBusy(bool) override {}
    void processEvents() override {}
    void beep() override {}
    void playSound(std::string_view) override {}
    int messages = 0;
};

struct LargeBusinessSize {
    int employees = 250;
    int days = 365;
    int entriesPerDay = 150;
    // When set, the entries span this many years from the first day instead of `days`, and
    // size().days gives the number of days that makes.
    int years = 0;
};

class LargeBusiness {
public:
    explicit LargeBusiness(LargeBusinessSize size = {});
    ~LargeBusiness();

    common::Session& session() { return *session_; }
    common::Date firstDay() const { return firstDay_; }
    const LargeBusinessSize& size() const { return size_; }
    static constexpr const char* kScheduleName = "Main Schedule";

private:
    std::filesystem::path folder_;
    SilentUi ui_;
    common::MemoryUserSettings settings_;
    common::FixedClock clock_;
    std::unique_ptr<common::Session> session_;
    common::Date firstDay_;
    LargeBusinessSize size_;
};

}  // namespace tallymere::bench
