#pragma once
// What the views share: text and date conversions, the binding of widgets to a model's
// members, read-only grids, and small event hooks (key filters, focus out, double click).

#include "common/date_time.h"
#include "reference/employee_records.h"

#include <QColor>
#include <QDate>
#include <QLabel>
#include <QObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

class QAbstractItemView;
class QBoxLayout;
class QCheckBox;
class QComboBox;
class QEvent;
class QGridLayout;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QSlider;
class QTableWidget;
class QWidget;

namespace tallymere::app {

inline QString qs(std::string_view s) { return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size())); }
inline std::string ss(const QString& s) { return s.toStdString(); }

inline QDate toQDate(common::Date d) { return QDate(d.year(), d.month(), d.day()); }
inline common::Date fromQDate(const QDate& d) { return common::Date::fromYmd(d.year(), d.month(), d.day()); }

// The business's first day of the week (an English day name, as the options keep it) for Qt's
// calendars; Sunday for a name Qt does not know.
Qt::DayOfWeek toQtDayOfWeek(std::string_view dayName);

// A colour as `position.color` keeps it (red + green * 256 + blue * 65536).
QColor toQColor(long color);
long fromQColor(const QColor& color);
// Black or white, whichever reads better on `background`.
QColor textColorOn(const QColor& background);

// Model -> widgets on show(); widgets -> model as the user edits. Only the user's edits reach the
// model: show() puts values in without emitting the edit signals.
class Binder {
public:
    void line(QLineEdit* w, std::string& field, std::function<void()> edited = {});
    void text(QPlainTextEdit* w, std::string& field, std::function<void()> edited = {});
    void check(QCheckBox* w, bool& field, std::function<void()> edited = {});
    // The combo's items follow the list's; a choice sets ListIndex.
    void combo(QComboBox* w, reference::ChoiceList& list, std::function<void()> chosen = {});
    void slider(QSlider* w, int& field, std::function<void()> moved = {});
    // Any other widget: how it shows the model.
    void custom(std::function<void()> show) { shows_.push_back(std::move(show)); }

    void show() const;

private:
    std::vector<std::function<void()>> shows_;
};

// Puts the list's items into a combo (when they differ) and selects ListIndex; no signals.
void showChoices(QComboBox* w, const reference::ChoiceList& list);

// A read-only grid that selects whole rows, one at a time.
QTableWidget* makeGrid(QWidget* parent, const char* objectName, const QStringList& columns);
QStringList columnTitles(std::initializer_list<const char*> titles);
template <class Titles>
QStringList columnTitles(const Titles& titles) {
    QStringList out;
    for (const char* t : titles) out << QString::fromUtf8(t);
    return out;
}
// Replaces the grid's rows and selects `selected` (-1: none); no signals.
void fillGrid(QTableWidget* grid, const std::vector<std::vector<std::string>>& rows, int selected);
// The row of a single-selection list or grid that is selected, -1 when none is.
int selectedRow(const QAbstractItemView* view);
// The row the user selects goes to `row`; -1 when none is selected.
void bindGridRow(QTableWidget* grid, int& row);

// A level from `min` to `max`, typed in the two-digit `field` or set with `slider`, over a
// "Least ... Most" scale named `scaleName`.
QGridLayout* levelRow(QLineEdit* field, QSlider* slider, int min, int max, const char* scaleName);

QPushButton* makeButton(QWidget* parent, const char* objectName, const QString& text);
QLabel* makeLabel(QWidget* parent, const QString& text, QWidget* buddy = nullptr);
// A text of the system's, shown as written (never as markup), wrapped to the window's width.
QLabel* plainText(QWidget* parent, const QString& text);
// A path field under its caption, with the "Browse..." button `BrowseButton` beside it, added to
// `layout`.
struct FolderField {
    QLineEdit* field;
    QPushButton* browse;
};
FolderField folderField(QWidget* parent, QBoxLayout* layout, const char* fieldName, const QString& caption);
// The row of buttons at the foot of a window, to the right.
QBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons);

// Declared as the last member of a view that owns a model, so that it goes first: it takes the
// focus out of the view and silences its widgets, so nothing the widgets emit while they are torn
// down reaches the model, which is gone by then.
class ViewGuard {
public:
    explicit ViewGuard(QWidget* view) : view_(view) {}
    ~ViewGuard();
    ViewGuard(const ViewGuard&) = delete;
    ViewGuard& operator=(const ViewGuard&) = delete;

private:
    QWidget* view_;
};

// Runs `hook` for each event of `target` before the target sees it; true swallows the event.
void hookEvents(QObject* target, std::function<bool(QEvent*)> hook);
// Typed characters (not editing keys) reach the field only when `accepts` says so.
void filterTypedKeys(QWidget* field, std::function<bool(const QString& typed)> accepts);
void onFocusOut(QWidget* w, std::function<void()> left);
void onDoubleClick(QWidget* w, std::function<void()> clicked);

}  // namespace tallymere::app
