// Records of the first and the last moments of a process: the default pattern before any was set,
// and static objects that still log when the main thread's own objects, and then the pattern, are
// gone. (No QtTest: it is gone by then, too.)

#include <NARV/LogHandler>

#include <cstdio>
#include <cstdlib>

static QString lastMessage;

static void receive(int, const QString &, const QString &message, void *)
{
    lastMessage = message;
    for (QChar &c : lastMessage)
        c = c.isDigit() ? QLatin1Char('0') : c;
}

static void logAndCompare(const char *expected)
{
    lastMessage.clear();
    NARV::LogHandler({}, nullptr, 0, nullptr, "GENERAL").warning().debug() << "text";
    if (lastMessage == QLatin1String(expected))
        return;
    std::fprintf(stderr, "\"%s\" instead of \"%s\"\n", qPrintable(lastMessage), expected);
    std::_Exit(1);
}

struct LogsAtExit
{
    const char *expected;
    ~LogsAtExit() { logAndCompare(expected); }
};

int main()
{
    static const char formatted[] = "[0000-00-00T00:00:00][WARNING][GENERAL]: text";
    NARV::narvInstallLogMessageHandlerPrivate(receive, nullptr);
    static const LogsAtExit afterThePattern{"text"};
    logAndCompare(formatted);
    static const LogsAtExit beforeThePattern{formatted};
    return 0;
}
