#pragma once
// Small pieces the maintenance windows share: named buttons, wrapped texts, the folder field with its
// Browse button.

#include <QString>
#include <initializer_list>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

namespace tallymere::app::parts {

QPushButton* button(QWidget* parent, const char* name, const QString& caption);
// A text of the system's, shown as written (never as markup), wrapped to the window's width.
QLabel* text(QWidget* parent, const QString& text);
// A path field under its caption, with the "Browse..." button `BrowseButton` beside it, added to
// `layout`.
struct FolderField {
    QLineEdit* field;
    QPushButton* browse;
};
FolderField folderField(QWidget* parent, QBoxLayout* layout, const char* fieldName, const QString& caption);
// The row of buttons at the foot of a window, to the right.
QBoxLayout* buttonRow(std::initializer_list<QPushButton*> buttons);

}  // namespace tallymere::app::parts
