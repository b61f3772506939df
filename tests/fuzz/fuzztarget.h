#ifndef ZPPLUGIN_TESTS_FUZZTARGET_H
#define ZPPLUGIN_TESTS_FUZZTARGET_H

#include <NARV/LogHandler>

#include <QByteArray>
#include <QStringList>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

//! What a fuzz target is: checks everything that has to hold for one input, and aborts where it
//! does not. Its callers are libFuzzer and replay.cpp.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

//! Says which condition the input broke, and aborts.
#define FUZZ_REQUIRE(condition)                                                                    \
    ((condition) ? void() : fuzzRequirementFailed(#condition, __FILE__, __LINE__))

[[noreturn]] inline void fuzzRequirementFailed(const char *condition, const char *file, int line)
{
    std::fprintf(stderr, "%s:%d: does not hold: %s\n", file, line, condition);
    std::abort();
}

//! A warning of Qt means that something was handed on unchecked.
inline void fuzzFailOnWarning(QtMsgType, const QMessageLogContext &, const QString &message)
{
    std::fprintf(stderr, "Qt warns: %s\n", qPrintable(message));
    std::abort();
}

inline const QtMessageHandler fuzzReplacedHandler = qInstallMessageHandler(fuzzFailOnWarning);

inline QByteArray fuzzBytes(const uint8_t *data, size_t size)
{
    return {reinterpret_cast<const char *>(data), int(size)};
}

//! A text, from UTF-8, or from UTF-16 code units as they are: lone surrogates and all.
inline QString fuzzText(const QByteArray &bytes, bool isUtf16)
{
    if (!isUtf16)
        return QString::fromUtf8(bytes.constData(), bytes.size()); // goes on behind a NUL
    QString text;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        text += QChar(uchar(bytes[i]), uchar(bytes[i + 1]));
    return text;
}

//! The texts that the library logs, as the message pattern writes them.
struct FuzzLog
{
    explicit FuzzLog(const QString &pattern)
    {
        NARV::narvInstallLogMessageHandlerPrivate(keep, &texts);
        NARV::narvSetLogMessagePattern(pattern);
    }
    ~FuzzLog() { NARV::narvUninstallLogMessageHandlerPrivate(); }
    Q_DISABLE_COPY(FuzzLog)

    QStringList texts;

private:
    static void keep(int, const QString &, const QString &text, void *texts)
    {
        static_cast<QStringList *>(texts)->append(text);
    }
};

#endif
