// Replays a fuzz corpus without libFuzzer: every file of the given folders,
// then deterministic mutations of each (truncations, flipped bytes, inserted
// bytes), so that a plain g++ build still exercises the parsers on damaged
// input. Any crash, sanitizer report or hang fails the run.
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdint>
#include <cstdio>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace {

void runOne(const QByteArray& bytes)
{
    // Copy so that the target sees a buffer of exactly this size (ASan catches overreads).
    std::vector<uint8_t> copy(bytes.begin(), bytes.end());
    LLVMFuzzerTestOneInput(copy.data(), copy.size());
}

void runMutations(const QByteArray& seed)
{
    const int n = seed.size();
    const int step = n > 256 ? n / 128 : 1;
    for (int cut = 0; cut < n; cut += step)
        runOne(seed.left(cut));
    static const char kBytes[] = {'\0', '\xff', '<', '>', '"', '&', '\x7f', '9'};
    for (int pos = 0; pos < n; pos += step) {
        for (char b : kBytes) {
            QByteArray flipped = seed;
            flipped[pos] = b;
            runOne(flipped);
            QByteArray inserted = seed;
            inserted.insert(pos, b);
            runOne(inserted);
        }
    }
}

QStringList corpusFiles(const QString& path)
{
    QFileInfo info(path);
    if (info.isFile())
        return {path};
    QStringList files;
    const QDir dir(path);
    for (const QString& name : dir.entryList(QDir::Files, QDir::Name))
        files << dir.filePath(name);
    return files;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    int runs = 0;
    for (int i = 1; i < argc; ++i) {
        for (const QString& file : corpusFiles(QString::fromLocal8Bit(argv[i]))) {
            QFile f(file);
            if (!f.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "replay: cannot read %s\n", qPrintable(file));
                return 2;
            }
            const QByteArray seed = f.readAll();
            runOne(seed);
            runMutations(seed);
            ++runs;
        }
    }
    if (runs == 0) {
        std::fprintf(stderr, "replay: no corpus file found\n");
        return 2;
    }
    std::printf("replay: %d seed files and their mutations ran clean\n", runs);
    return 0;
}
