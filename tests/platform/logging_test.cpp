#include "ttplatform/logging.h"

#include <gmock/gmock.h>
#include <log4cxx/level.h>
#include <log4cxx/logmanager.h>
#include <log4cxx/spi/location/locationinfo.h>

#include <clocale>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "standin/filebytes.h"
#include "standin/logsetup.h"
#include "tests/support/tempfile.h"

namespace standin {
namespace {

using log4cxx::spi::LocationInfo;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::string bytesOf(const std::string& path) {
    std::string bytes;
    EXPECT_EQ(readFileBytes(path, bytes), FileProblem::kNone);
    return bytes;
}

void logError(const std::string& message, const char* function) {
    g_TTStdLogger->forcedLog(log4cxx::Level::getError(), message, LocationInfo("libs/x", "x", function, 0));
}

TEST(Logging, WithoutSetupThereIsNoLoggerAndNoChannel) {
    EXPECT_FALSE(g_TTStdLogger);
    EXPECT_FALSE(CLogCenter::fileLogEnabled(532));
    ttDbgLogNew(log4cxx::LoggerPtr(), 532, "goes nowhere");
}

TEST(Logging, FileHasOneLineAMessage) {
    const tests::TempFolder folder;
    const std::string path = folder.path("log.txt");
    std::string error;
    ASSERT_TRUE(startLogFile(path, error)) << error;
    ASSERT_TRUE(g_TTStdLogger);
    logError("one", "setFoo");
    logError("two words", "luabase::printLog");
    logError("", "setFoo");
    g_TTStdLogger->forcedLog(log4cxx::Level::getInfo(), "an info", LocationInfo("libs/x", "x", "a::b::c", 0));
    const log4cxx::LoggerPtr debugFile = log4cxx::Logger::getLogger("TTDbgFile");
    EXPECT_TRUE(debugFile->isDebugEnabled());
    EXPECT_TRUE(CLogCenter::fileLogEnabled(532));
    EXPECT_TRUE(CLogCenter::fileLogEnabled(-1));
    ttDbgLogNew(debugFile, 532, "tmpTS.size = 7");
    const std::string expected =
        "ERROR TTStdLogger setFoo one\n"
        "ERROR TTStdLogger luabase::printLog two words\n"
        "ERROR TTStdLogger setFoo \n"
        "INFO TTStdLogger a::b::c an info\n"
        "DEBUG TTDbgFile ttDbgLogNew tmpTS.size = 7\n";
    // Each line is flushed at once, before the file is closed.
    EXPECT_EQ(bytesOf(path), expected);
    stopLogging();
    EXPECT_FALSE(g_TTStdLogger);
    EXPECT_FALSE(CLogCenter::fileLogEnabled(532));
    ttDbgLogNew(debugFile, 532, "too late");
    EXPECT_EQ(bytesOf(path), expected);
    stopLogging();
}

TEST(Logging, LineEndsInsideAMessageAreShown) {
    const tests::TempFolder folder;
    const std::string path = folder.path("log.txt");
    std::string error;
    ASSERT_TRUE(startLogFile(path, error)) << error;
    logError("a\nb\r\nc\\d\te\n", "f");
    EXPECT_EQ(bytesOf(path), "ERROR TTStdLogger f a\\nb\\r\\nc\\d\te\\n\n");
    stopLogging();
}

TEST(Logging, MessagesAreUtf8WhateverTheLocale) {
    const tests::TempFolder folder;
    const std::string path = folder.path("log.txt");
    ASSERT_STREQ(std::setlocale(LC_ALL, "C"), "C");
    std::string error;
    ASSERT_TRUE(startLogFile(path, error)) << error;
    logError("unit 股, 份", "f");
    EXPECT_EQ(bytesOf(path), "ERROR TTStdLogger f unit 股, 份\n");
    // Only the character type of the locale has changed.
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    stopLogging();
}

TEST(Logging, LinesWithInvalidUtf8AreKept) {
    const tests::TempFolder folder;
    const std::string path = folder.path("log.txt");
    std::string error;
    ASSERT_TRUE(startLogFile(path, error)) << error;
    logError("a\xff\xfe\x80z", "f");
    logError("next", "f");
    const std::string all = bytesOf(path);
    EXPECT_EQ(all.substr(0, 21), "ERROR TTStdLogger f a");
    EXPECT_THAT(all, HasSubstr("z\nERROR TTStdLogger f next\n"));
    stopLogging();
}

TEST(Logging, FileThatCannotBeOpenedLeavesLoggingAsItWas) {
    const tests::TempFolder folder;
    std::string error;
    EXPECT_FALSE(startLogFile(folder.path("none/log.txt"), error));
    EXPECT_THAT(error, HasSubstr(folder.path("none/log.txt")));
    EXPECT_FALSE(startLogFile(folder.path(""), error));
    EXPECT_FALSE(startLogFile("", error));
    EXPECT_FALSE(g_TTStdLogger);
    EXPECT_FALSE(CLogCenter::fileLogEnabled(532));
    const std::string path = folder.path("log.txt");
    ASSERT_TRUE(startLogFile(path, error)) << error;
    EXPECT_FALSE(startLogFile(folder.path("none/log.txt"), error));
    logError("still here", "f");
    EXPECT_EQ(bytesOf(path), "ERROR TTStdLogger f still here\n");
    stopLogging();
}

TEST(Logging, SecondFileTakesOverAndIsEmptiedFirst) {
    const tests::TempFolder folder;
    std::string error;
    const std::string first = folder.path("first.txt");
    const std::string second = folder.write("second.txt", "old\n");
    ASSERT_TRUE(startLogFile(first, error)) << error;
    logError("1", "f");
    ASSERT_TRUE(startLogFile(second, error)) << error;
    logError("2", "f");
    stopLogging();
    EXPECT_EQ(bytesOf(first), "ERROR TTStdLogger f 1\n");
    EXPECT_EQ(bytesOf(second), "ERROR TTStdLogger f 2\n");
}

// An unconfigured log4cxx would load this file on its own at the first getLogger.
TEST(Logging, NoConfigurationOfTheWorkingDirectoryIsRead) {
    const tests::TempFolder folder;
    const std::filesystem::path before = std::filesystem::current_path();
    folder.write("log4cxx.properties",
                 "log4j.rootLogger=DEBUG, A\nlog4j.appender.A=org.apache.log4j.FileAppender\n"
                 "log4j.appender.A.File=stray.txt\nlog4j.appender.A.layout=org.apache.log4j.SimpleLayout\n");
    std::filesystem::current_path(folder.path(""));
    std::string error;
    ASSERT_TRUE(startLogFile(folder.path("log.txt"), error)) << error;
    logError("1", "f");
    stopLogging();
    EXPECT_FALSE(std::filesystem::exists("stray.txt"));
    {
        const LogCapture capture;
        logError("2", "f");
    }
    EXPECT_FALSE(std::filesystem::exists("stray.txt"));
    std::filesystem::current_path(before);
}

TEST(Logging, LinesOfSeveralThreadsStayWhole) {
    const tests::TempFolder folder;
    const std::string path = folder.path("log.txt");
    std::string error;
    ASSERT_TRUE(startLogFile(path, error)) << error;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([] {
            for (int round = 0; round < 200; ++round)
                logError("0123456789", "f");
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    stopLogging();
    const std::string all = bytesOf(path);
    const std::string line = "ERROR TTStdLogger f 0123456789\n";
    ASSERT_EQ(all.size(), line.size() * 800);
    for (std::size_t at = 0; at < all.size(); at += line.size())
        ASSERT_EQ(all.substr(at, line.size()), line);
}

TEST(LogChannels, AreTurnedOnAndOffOneByOneOrAllAtOnce) {
    setFileLogEnabled(532, true);
    EXPECT_TRUE(CLogCenter::fileLogEnabled(532));
    EXPECT_FALSE(CLogCenter::fileLogEnabled(535));
    setEveryFileLogEnabled(true);
    setFileLogEnabled(532, false);
    EXPECT_FALSE(CLogCenter::fileLogEnabled(532));
    EXPECT_TRUE(CLogCenter::fileLogEnabled(535));
    setEveryFileLogEnabled(false);
    EXPECT_FALSE(CLogCenter::fileLogEnabled(532));
    EXPECT_FALSE(CLogCenter::fileLogEnabled(535));
}

TEST(LogCapture, CatchesEveryLoggerWithLevelFunctionAndFile) {
    LogCapture capture;
    EXPECT_THAT(capture.lines(), IsEmpty());
    ASSERT_TRUE(g_TTStdLogger);
    logError("股\n2", "initAlgoParams");
    ttDbgLogNew(log4cxx::Logger::getLogger("TTDbgFile"), 535, "times");
    const std::vector<LogLine> lines = capture.lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].level, "ERROR");
    EXPECT_EQ(lines[0].logger, "TTStdLogger");
    EXPECT_EQ(lines[0].function, "initAlgoParams");
    EXPECT_EQ(lines[0].file, "libs/x");
    EXPECT_EQ(lines[0].message, "股\n2");
    EXPECT_EQ(lines[1].level, "DEBUG");
    EXPECT_EQ(lines[1].logger, "TTDbgFile");
    EXPECT_EQ(lines[1].function, "ttDbgLogNew");
    EXPECT_THAT(capture.messages(), ElementsAre("股\n2", "times"));
    // Capturing lines does not enable channels.
    EXPECT_FALSE(CLogCenter::fileLogEnabled(535));
    capture.clear();
    EXPECT_THAT(capture.lines(), IsEmpty());
}

TEST(LogCapture, EndsWithItselfAndGivesTheLoggerBack) {
    {
        LogCapture capture;
        logError("1", "f");
        EXPECT_THAT(capture.messages(), ElementsAre("1"));
    }
    EXPECT_FALSE(g_TTStdLogger);
    g_TTStdLogger = log4cxx::Logger::getLogger("mine");
    {
        LogCapture capture;
        logError("2", "f");
        EXPECT_EQ(capture.lines().at(0).logger, "mine");
    }
    EXPECT_TRUE(g_TTStdLogger);
    g_TTStdLogger.reset();
}

TEST(LogCapture, UnknownLocationHasNoFile) {
    LogCapture capture;
    g_TTStdLogger->forcedLog(log4cxx::Level::getInfo(), "x", LocationInfo::getLocationUnavailable());
    ASSERT_EQ(capture.lines().size(), 1u);
    EXPECT_EQ(capture.lines()[0].function, "?");
    EXPECT_EQ(capture.lines()[0].file, "");
}

}  // namespace
}  // namespace standin
