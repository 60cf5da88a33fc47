#include "PreviewWorker.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <new>

#include "LuaPreviewScript.h"
#include "PreviewWire.h"

namespace {

const char kMemory[] = "--memory";
const char kInstructions[] = "--instructions";
const char kTime[] = "--time-ms";

// Room in the address space beyond the memory limit of a run: the allocator's slack and what
// the program's libraries map while it runs.
constexpr rlim_t kSlackBytes = 64 << 20;

// AddressSanitizer keeps freed memory in quarantine, far beyond what a run may hold: its builds
// run without the address-space limit.
#ifdef __SANITIZE_ADDRESS__
constexpr bool kLimitAddressSpace = false;
#else
constexpr bool kLimitAddressSpace = true;
#endif

void SetLimit(int resource, rlim_t soft) {
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return;
    limit.rlim_cur = limit.rlim_max == RLIM_INFINITY ? soft : std::min(soft, limit.rlim_max);
    setrlimit(resource, &limit);
}

// The process's address space now, from /proc/self/statm (its size in pages); 0 when unknown.
rlim_t AddressSpace() {
    unsigned long pages = 0;
    FILE* statm = std::fopen("/proc/self/statm", "r");
    if (!statm) return 0;
    if (std::fscanf(statm, "%lu", &pages) != 1) pages = 0;
    std::fclose(statm);
    return rlim_t(pages) * rlim_t(sysconf(_SC_PAGESIZE));
}

bool WriteAll(int fd, const QByteArray& bytes) {
    return PreviewWire::Transfer(bytes.size(), [&](qsizetype done) {
        return write(fd, bytes.constData() + done, size_t(bytes.size() - done));
    });
}

// Reads exactly `size` bytes; false at the end of the input or on an error.
bool ReadExactly(int fd, char* data, qsizetype size) {
    return PreviewWire::Transfer(
        size, [&](qsizetype done) { return read(fd, data + done, size_t(size - done)); });
}

// The body of the next frame; false at the end of the input. `valid` is false for a header
// that no request can have.
bool ReadFrame(int fd, QByteArray& body, bool& valid) {
    char header[PreviewWire::kHeaderSize];
    if (!ReadExactly(fd, header, sizeof header)) return false;
    const qsizetype size = PreviewWire::BodySize(header);
    valid = size >= 0;
    if (!valid) return true;
    body.resize(size);
    return ReadExactly(fd, body.data(), size);
}

}  // namespace

QByteArrayList PreviewWorker::Arguments(const PreviewLimits& limits) {
    return {kMemory,       QByteArray::number(qulonglong(limits.memoryBytes)),
            kInstructions, QByteArray::number(limits.instructions),
            kTime,         QByteArray::number(limits.wallClockMs)};
}

bool PreviewWorker::ParseArguments(int argc, const char* const* argv, PreviewLimits& limits) {
    if (argc != 7) return false;
    bool ok[3] = {};
    for (int i = 1; i + 1 < argc; i += 2) {
        const QByteArray value(argv[i + 1]);
        if (std::strcmp(argv[i], kMemory) == 0)
            limits.memoryBytes = std::size_t(value.toULongLong(&ok[0]));
        else if (std::strcmp(argv[i], kInstructions) == 0)
            limits.instructions = value.toLongLong(&ok[1]);
        else if (std::strcmp(argv[i], kTime) == 0)
            limits.wallClockMs = value.toInt(&ok[2]);
    }
    return ok[0] && ok[1] && ok[2];
}

int PreviewWorker::Serve(int in, int out) const {
    LimitProcess();
    QByteArray body;
    bool valid = true;
    while (ReadFrame(in, body, valid)) {
        QByteArray script;
        PreviewParameters parameters;
        if (!valid || !PreviewWire::ReadRequest(body, script, parameters)) return BadRequest;
        LimitProcessorTimeOfNextRun();
        if (!WriteAll(out, ResultFrame(script, parameters))) return OutputClosed;
    }
    return 0;
}

QByteArray PreviewWorker::ResultFrame(const QByteArray& script,
                                      const PreviewParameters& parameters) const {
    try {
        return PreviewWire::Result(LuaPreviewScript::Run(script, parameters, m_limits));
    } catch (const std::bad_alloc&) {
        // Past the address-space limit outside the Lua heap: the run is over its memory.
        PreviewResult result;
        result.outcome = PreviewResult::MemoryLimit;
        return PreviewWire::Result(result);
    }
}

void PreviewWorker::LimitProcess() const {
    SetLimit(RLIMIT_CORE, 0);
    SetLimit(RLIMIT_FSIZE, 0);
    // A run holds at most its memory limit in the Lua heap and the drawing list together, and
    // about as much again while its result is encoded.
    const rlim_t now = kLimitAddressSpace ? AddressSpace() : 0;
    if (now > 0) SetLimit(RLIMIT_AS, now + 3 * rlim_t(m_limits.memoryBytes) + kSlackBytes);
}

void PreviewWorker::LimitProcessorTimeOfNextRun() const {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const rlim_t used = rlim_t(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec);
    SetLimit(RLIMIT_CPU, used + rlim_t(m_limits.wallClockMs) / 1000 + 2);
}
