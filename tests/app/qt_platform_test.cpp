#include "app/common/qt_platform.h"
#include "app/common/qt_locale.h"
#include "app_test.h"
#include "common/display_format.h"

#include <QDir>
#include <QTemporaryDir>
#include <regex>

namespace tallymere::testing {
namespace {

TEST(QtPlatformTest, OneCopyHoldsTheMachineUntilItEnds) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    {
        app::QtPlatform first(dir.path());
        EXPECT_FALSE(first.anotherCopyRunning());
        EXPECT_FALSE(first.anotherCopyRunning());  // asking again keeps the lock
        app::QtPlatform second(dir.path());
        EXPECT_TRUE(second.anotherCopyRunning());
    }
    app::QtPlatform later(dir.path());
    EXPECT_FALSE(later.anotherCopyRunning());
}

TEST(QtPlatformTest, FoldersAndVersion) {
    app::QtPlatform platform;
    EXPECT_TRUE(platform.isNetworkFolder("//server/share/Tallymere"));
    EXPECT_FALSE(platform.isNetworkFolder(QDir::tempPath().toStdString()));
    EXPECT_FALSE(platform.isNetworkFolder("/no/such/folder"));
    EXPECT_TRUE(platform.commonDocumentsFolder().empty());
    EXPECT_FALSE(platform.applicationDataFolder().empty());
    EXPECT_TRUE(std::regex_match(platform.programVersion(), std::regex(R"(\d+\.\d+\.\d+)")))
        << platform.programVersion();
}

TEST(QtLocaleTest, DatePatternsAreTranslatedOnlyWhenTheyAreSimple) {
    EXPECT_EQ(app::dateFormatFromQt(QStringLiteral("M/d/yy")), "m/d/yy");
    EXPECT_EQ(app::dateFormatFromQt(QStringLiteral("dddd, MMMM d, yyyy")), "dddd, mmmm d, yyyy");
    EXPECT_EQ(app::dateFormatFromQt(QStringLiteral("dd.MM.yyyy")), "dd.mm.yyyy");
    EXPECT_EQ(app::dateFormatFromQt(QStringLiteral("d 'de' MMMM 'de' yyyy")), std::nullopt);
    EXPECT_EQ(app::dateFormatFromQt(QStringLiteral("yyyy-MM-dd HH:mm")), std::nullopt);
}

TEST(QtLocaleTest, AGermanSystemWritesMoneyAndDatesItsWay) {
    const common::FormatLocale f = app::formatLocaleFrom(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(f.decimalSeparator, ",");
    EXPECT_EQ(f.thousandsSeparator, ".");
    EXPECT_EQ(f.currencySymbol, "\u20ac");
    EXPECT_FALSE(f.currencySymbolFirst);
    EXPECT_EQ(f.shortDatePattern, "dd.mm.yy");
    EXPECT_EQ(common::formatDate(common::Date::fromYmd(2026, 11, 23), "short date", f), "23.11.26");

    const common::FormatLocale us = app::formatLocaleFrom(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(us.decimalSeparator, ".");
    EXPECT_EQ(us.currencySymbol, "$");
    EXPECT_TRUE(us.currencySymbolFirst);
}

}  // namespace
}  // namespace tallymere::testing
