// Runs a fuzz target over files and folders of inputs, without libFuzzer:
//
//     fuzz_replay_<target> <file or folder>...
//
// Names each input before it runs, so that the last name is that of the one that crashed or hung.

#include "fuzztarget.h"

#include <QDirIterator>
#include <QElapsedTimer>

#include <memory>

// Inputs take milliseconds, also under sanitizers; one that takes longer is on its way to a hang.
static constexpr int timeLimitMs = 5000;

static void replay(const QString &path)
{
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
    QFile file(path);
    FUZZ_REQUIRE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    // On the heap in its exact size, where a sanitizer sees a read behind its end.
    const std::unique_ptr<uint8_t[]> data(new uint8_t[size_t(content.size())]);
    std::copy(content.begin(), content.end(), data.get());

    QElapsedTimer timer;
    timer.start();
    LLVMFuzzerTestOneInput(data.get(), size_t(content.size()));
    FUZZ_REQUIRE(timer.elapsed() < timeLimitMs);
}

int main(int argc, char **argv)
{
    int count = 0;
    for (int i = 1; i < argc; ++i) {
        QStringList paths(QString::fromLocal8Bit(argv[i]));
        for (QDirIterator inputs(paths[0], QDir::Files); inputs.hasNext();)
            paths += inputs.next();
        for (const QString &path : paths.mid(paths.size() > 1 ? 1 : 0)) {
            ++count;
            replay(path);
        }
    }
    std::printf("%d inputs\n", count);
    return count > 0 ? 0 : 1;
}
