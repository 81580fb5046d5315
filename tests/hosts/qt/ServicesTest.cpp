#include "QtEffects.h"
#include "QtLocale.h"
#include "SingleProgram.h"
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmorath {

namespace {

TEST(Dates, FollowLanguageAndZone)
{
    const double lateEvening = 1795388340; // 2026-11-22 22:59 UTC
    const auto date = [&](const char* language, const char* zone) {
        return QtLocale({language}).mediumDate(lateEvening, zone);
    };
    EXPECT_EQ(date("en-US", "UTC"), "Nov 22, 2026");
    EXPECT_EQ(date("en-GB", "UTC"), "22 Nov 2026");
    EXPECT_EQ(date("de", "UTC"), "22.11.2026");
    EXPECT_EQ(date("fr-FR", "UTC"), "22 nov. 2026");
    EXPECT_EQ(date("ja", "UTC"), "2026/11/22");
    EXPECT_EQ(date("en", "Asia/Tokyo"), "Nov 23, 2026");

    QtLocale locale({"en"});
    EXPECT_EQ(locale.mediumDate(lateEvening, "Asia/Tokyo"), "Nov 23, 2026");
    EXPECT_EQ(locale.mediumDate(lateEvening, "UTC"), "Nov 22, 2026") << "the zone is the one of each call";
    EXPECT_FALSE(locale.mediumDate(lateEvening, "no zone").empty());
    EXPECT_EQ(QtLocale(std::vector<std::string>()).mediumDate(-1, "UTC"), "Dec 31, 1969");
}

TEST(Dates, PlainCIsEnglish)
{
    for (const std::string& language : QtLocale().preferredLanguages())
        EXPECT_EQ(language.substr(0, 2), "en");
    EXPECT_FALSE(QtLocale().preferredLanguages().empty());
}

TEST(QuietMachine, MissingServicesAreSilentAndCostNoTime)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
    QElapsedTimer timer;
    timer.start();
    QtEffects effects(QStringLiteral("/nowhere/velmorath-sound.so"));
    effects.playSound("/nowhere/sound.mp3");
    effects.playSound("/nowhere/sound.mp3");
    effects.vibrate();
    effects.setBadge(3);
    EXPECT_LT(timer.elapsed(), 50);
    EXPECT_FALSE(effects.openAddress("no-such-scheme-anywhere://x"));
    EXPECT_FALSE(effects.openAddress("not an address"));
    bool granted = false;
    effects.requestNotificationPermission(true, true, true, [&](bool answer) { granted = answer; });
    EXPECT_TRUE(granted);
}

TEST(OneProgram, TheSecondCallsTheFirst)
{
    QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    SingleProgram first(path);
    ASSERT_TRUE(first.isFirst());
    std::string token;
    first.setOnCall([&](const std::string& given) { token = given; });

    const pid_t child = fork();
    if (child == 0) {
        const SingleProgram second(path);
        _exit(!second.isFirst() && second.callFirst("the token") ? 0 : 1);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return !token.empty(); }, 3000));
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(token, "the token");
}

TEST(OneProgram, WhatAKilledOneLeavesBehindIsTakenOver)
{
    QTemporaryDir folder;
    const std::string path = folder.path().toStdString();
    const pid_t child = fork();
    if (child == 0) {
        const SingleProgram killed(path);
        raise(SIGKILL);
    }
    waitpid(child, nullptr, 0);
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("velmorath.socket"))));
    SingleProgram next(path);
    EXPECT_TRUE(next.isFirst());
    EXPECT_FALSE(SingleProgram(path).isFirst());
}

TEST(OneProgram, AFolderThatCannotBeWrittenStopsNobody)
{
    EXPECT_TRUE(SingleProgram("/proc/nowhere").isFirst());
    EXPECT_TRUE(SingleProgram("").isFirst());
}

} // namespace

} // namespace velmorath
