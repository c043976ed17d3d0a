#include "app/common/qt_locale.h"

namespace tallymere::app {

std::optional<std::string> dateFormatFromQt(const QString& pattern) {
    QString out;
    for (const QChar c : pattern) {
        if (c == QLatin1Char('d') || c == QLatin1Char('y'))
            out += c;
        else if (c == QLatin1Char('M'))
            out += QLatin1Char('m');
        else if (c.isLetter() || c == QLatin1Char('\''))
            return std::nullopt;
        else
            out += c;
    }
    if (out.trimmed().isEmpty()) return std::nullopt;
    return out.toStdString();
}

common::FormatLocale formatLocaleFrom(const QLocale& locale) {
    common::FormatLocale f;
    if (const QString d = locale.decimalPoint(); !d.isEmpty()) f.decimalSeparator = d.toStdString();
    f.thousandsSeparator = locale.groupSeparator().toStdString();
    if (const QString c = locale.currencySymbol(QLocale::CurrencySymbol); !c.isEmpty()) {
        f.currencySymbol = c.toStdString();
        const QString positive = locale.toCurrencyString(1.0);
        const QString negative = locale.toCurrencyString(-1.0);
        f.currencySymbolFirst = positive.indexOf(c) <= positive.indexOf(QLatin1Char('1'));
        f.negativeCurrencyInParentheses = negative.startsWith(QLatin1Char('('));
    }
    if (const auto p = dateFormatFromQt(locale.dateFormat(QLocale::ShortFormat))) f.shortDatePattern = *p;
    if (const auto p = dateFormatFromQt(locale.dateFormat(QLocale::LongFormat))) f.longDatePattern = *p;
    if (const QString am = locale.amText(); !am.isEmpty()) f.amDesignator = am.toStdString();
    if (const QString pm = locale.pmText(); !pm.isEmpty()) f.pmDesignator = pm.toStdString();
    return f;
}

}  // namespace tallymere::app
