#pragma once
// The four pictures of an employee row in the daily schedule's list and the entry editor's list:
// nothing to say, scheduled on the day, on leave, not available for the times in question.

#include <QIcon>
#include <QString>

namespace tallymere::app {

// `picture` as the models number it (1 none, 2 scheduled, 3 on leave, 4 not available); any other
// number gives the empty picture. The icons are drawn once and kept.
QIcon employeePicture(int picture);
// What the picture means, for a tooltip.
QString employeePictureText(int picture);

}  // namespace tallymere::app
