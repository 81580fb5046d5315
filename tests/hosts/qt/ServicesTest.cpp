#include "QtClock.h"
#include "QtEffects.h"
#include "QtLocale.h"
#include "SingleProgram.h"
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace velmorath {

namespace {

constexpr double lateEvening = 1795388340; // 2026-11-22 22:59 UTC

void setCustoms(const char* all, const char* ofDates, const char* language)
{
    qputenv("LC_ALL", all);
    qputenv("LC_TIME", ofDates);
    qputenv("LANG", language);
}

std::string date(const char* all, const char* ofDates, const char* language)
{
    setCustoms(all, ofDates, language);
    return QtLocale().mediumDate(lateEvening);
}

TEST(Dates, AreWrittenAsTheCustomsForTimesSay)
{
    EXPECT_EQ(date("", "", "en_US.UTF-8"), "Nov 22, 2026");
    EXPECT_EQ(date("", "", "fr_FR.UTF-8"), "22 nov. 2026");
    EXPECT_EQ(date("", "de_DE.UTF-8", "en_US.UTF-8"), "22.11.2026");
    EXPECT_EQ(date("", "de_DE@euro", "C"), "22.11.2026");
    EXPECT_EQ(date("en_GB.UTF-8", "de_DE.UTF-8", "en_US.UTF-8"), "22 Nov 2026");
    EXPECT_EQ(date("", "ja_JP.UTF-8", ""), "2026/11/22");
}

TEST(Dates, AreEnglishWhereTheCustomsAreUnknown)
{
    for (const char* name : {"", "C", "C.UTF-8", "POSIX", "zz_ZZ.UTF-8", "root", "///"})
        EXPECT_EQ(date(name, name, name), "Nov 22, 2026") << name;
}

TEST(Languages, PlainCIsEnglish)
{
    setCustoms("", "", "C");
    for (const std::string& language : QtLocale().preferredLanguages())
        EXPECT_EQ(language.substr(0, 2), "en");
    EXPECT_FALSE(QtLocale().preferredLanguages().empty());
}

TEST(SlowDesktop, IsAskedInTimeAndNotWaitedFor)
{
    const QTemporaryDir folder;
    const auto write = [&folder](const QString& name, const QByteArray& bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    };
    // Stands where the desktop's tool would: it answers, that there is nothing, when a file appears.
    write(QStringLiteral("xdg-mime"),
        "#!/bin/sh\ncd '" + folder.path().toUtf8()
            + "'\necho \"$*\" >>asked\nuntil test -e answer; do sleep 0.02; done\necho\n");
    const auto asked = [&folder] {
        QFile file(folder.filePath(QStringLiteral("asked")));
        return file.open(QIODevice::ReadOnly) ? file.readLine() : QByteArray();
    };
    qputenv("PATH", folder.path().toUtf8() + ":" + qgetenv("PATH"));
    const QtClock clock([] {});
    ScreenWidget screen(clock);
    QtEffects effects(screen, QStringLiteral("/nowhere/velmorath-sound.so"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return asked() == "query default x-scheme-handler/mailto\n"; }))
        << "before anybody wants to know";
    EXPECT_TRUE(effects.canSendMail()) << "no answer is no no";
    EXPECT_FALSE(effects.openAddress("rare-scheme://x")) << "its caller has another way, which must be taken";
    EXPECT_TRUE(effects.canSendMail());
    write(QStringLiteral("answer"), {});
    EXPECT_TRUE(QTest::qWaitFor([&] { return !effects.canSendMail(); })) << "the answer was no";
}

TEST(QuietMachine, MissingServicesAreSilentAndCostNoTime)
{
    qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere/bus");
    QElapsedTimer timer;
    timer.start();
    const QtClock clock([] {});
    ScreenWidget screen(clock);
    QtEffects effects(screen, QStringLiteral("/nowhere/velmorath-sound.so"));
    effects.playSound("/nowhere/sound.mp3");
    effects.playSound("/nowhere/sound.mp3");
    effects.vibrate();
    effects.setBadge(3);
    EXPECT_LT(timer.elapsed(), 5000) << "a bus that does not answer is given up after 25 s";
    EXPECT_FALSE(effects.openAddress("no-such-scheme-anywhere://x"));
    EXPECT_FALSE(effects.openAddress("not an address"));
    bool granted = false;
    effects.requestNotificationPermission([&](bool answer) { granted = answer; });
    EXPECT_TRUE(granted);
}

TEST(OneProgram, AFolderThatCannotBeWrittenStopsNobody)
{
    EXPECT_TRUE(SingleProgram("/proc/nowhere").isFirst());
    EXPECT_TRUE(SingleProgram("").isFirst());
}

} // namespace

} // namespace velmorath
