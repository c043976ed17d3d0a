#pragma once
// The system's number, currency and date conventions, as the formatting code reads them.

#include "common/display_format.h"

#include <QLocale>
#include <QString>
#include <optional>
#include <string>

namespace tallymere::app {

// Separators, currency symbol and placement, AM/PM texts and the short and long date patterns of
// `locale`. A date pattern that the formatting language cannot say keeps the default.
common::FormatLocale formatLocaleFrom(const QLocale& locale);

// A Qt date pattern ("M/d/yy", "dddd, MMMM d, yyyy") in the formatting language ("m/d/yy"); nullopt
// when it holds more than days, months, years and separators (quoted text, eras, times).
std::optional<std::string> dateFormatFromQt(const QString& pattern);

}  // namespace tallymere::app
