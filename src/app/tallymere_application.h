#pragma once
// The application object. Every event passes through notify(), which is the one place where the end
// of the program thrown from the logic (common::ProgramEnd) and any unexpected exception are caught.

#include <QApplication>
#include <QString>
#include <functional>

namespace tallymere::app {

class TallymereApplication : public QApplication {
    Q_OBJECT

public:
    TallymereApplication(int& argc, char** argv);

    bool notify(QObject* receiver, QEvent* event) override;

    // True once the logic has ended the program; windows closing after that skip their saves.
    bool ending() const { return ending_; }

    // How an unexpected error is told; by default a critical message box. Tests replace it.
    using ErrorReporter = std::function<void(const QString& what)>;
    void setErrorReporter(ErrorReporter report) { report_ = std::move(report); }

private:
    ErrorReporter report_;
    bool ending_ = false;
};

}  // namespace tallymere::app
