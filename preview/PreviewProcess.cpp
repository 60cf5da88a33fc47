#include "PreviewProcess.h"

#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstring>
#include <vector>

#include "PreviewWire.h"
#include "PreviewWorker.h"

extern char** environ;

namespace {

constexpr qsizetype kReadChunk = 1 << 16;

QString SystemError(int error) {
    return QString::fromLocal8Bit(std::strerror(error));
}

// Starts `program` with `arguments`, its standard input and output on `socket`; no other file
// of this process is open in it, and it takes the default actions for the signals that end it
// (this process may ignore them).
int Spawn(const QByteArray& program, QByteArrayList arguments, int socket, pid_t& pid) {
    std::vector<char*> argv;
    QByteArray name = program;
    argv.push_back(name.data());
    for (QByteArray& argument : arguments) argv.push_back(argument.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, socket, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&actions, socket, STDOUT_FILENO);
    posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t none, defaults;
    sigemptyset(&none);
    sigemptyset(&defaults);
    for (int signal : {SIGPIPE, SIGXCPU, SIGXFSZ}) sigaddset(&defaults, signal);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    const int error =
        posix_spawn(&pid, program.constData(), &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    return error;
}

}  // namespace

PreviewProcess::~PreviewProcess() {
    Stop();
}

QString PreviewProcess::Program() {
    const QString chosen = qEnvironmentVariable("VORDPM_PREVIEW_PROGRAM");
    if (!chosen.isEmpty()) return chosen;
    const QString installed = QFileInfo(QStringLiteral("/proc/self/exe")).canonicalPath() +
                              QStringLiteral("/" VORDPM_INSTALLED_PREVIEW_PROGRAM);
    if (QFileInfo::exists(installed)) return QDir::cleanPath(installed);
    return QStringLiteral(VORDPM_BUILT_PREVIEW_PROGRAM);
}

bool PreviewProcess::Start() {
    if (m_pid > 0) return true;
    m_received.clear();
    int sockets[2];
    if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
        return Fail(QStringLiteral("cannot make a socket: %1").arg(SystemError(errno)));
    const QString program = Program();
    const int error =
        Spawn(QFile::encodeName(program), PreviewWorker::Arguments(m_limits), sockets[1], m_pid);
    close(sockets[1]);
    if (error != 0) {
        close(sockets[0]);
        m_pid = -1;
        return Fail(QStringLiteral("cannot start %1: %2").arg(program, SystemError(error)));
    }
    m_socket = sockets[0];
    return true;
}

bool PreviewProcess::Send(const QByteArray& frame) {
    // A child that ended since the last run (killed from outside, or its processor time used
    // up) is replaced once.
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!Start()) return false;
        if (SendAll(frame)) return true;
        Fail(Ended());
    }
    return false;
}

bool PreviewProcess::SendAll(const QByteArray& frame) {
    // No SIGPIPE when the child has gone: the error says so instead.
    return PreviewWire::Transfer(frame.size(), [&](qsizetype done) {
        return send(m_socket, frame.constData() + done, size_t(frame.size() - done), MSG_NOSIGNAL);
    });
}

PreviewProcess::Reply PreviewProcess::Receive(int waitMs, PreviewResult& result) {
    if (m_pid <= 0) return Reply::Failed;
    const QDeadlineTimer deadline(waitMs);
    for (;;) {
        const bool open = ReadAvailable();
        // A result written before the child ended still counts.
        const Reply taken = TakeResult(result);
        if (taken != Reply::Pending) return taken;
        if (!open) {
            Fail(Ended());
            return Reply::Failed;
        }
        if (deadline.hasExpired()) return Reply::Pending;
        pollfd readable{m_socket, POLLIN, 0};
        poll(&readable, 1, int(deadline.remainingTime()));
    }
}

bool PreviewProcess::ReadAvailable() {
    for (;;) {
        const qsizetype at = m_received.size();
        m_received.resize(at + kReadChunk);
        const ssize_t got = recv(m_socket, m_received.data() + at, kReadChunk, MSG_DONTWAIT);
        m_received.truncate(at + std::max<ssize_t>(got, 0));
        if (got > 0) continue;
        if (got < 0 && (errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR)) return true;
        return false;  // the end of the stream: the child has ended
    }
}

PreviewProcess::Reply PreviewProcess::TakeResult(PreviewResult& result) {
    if (m_received.size() < PreviewWire::kHeaderSize) return Reply::Pending;
    const qsizetype size = PreviewWire::BodySize(m_received.constData());
    if (size >= 0 && m_received.size() < PreviewWire::kHeaderSize + size) return Reply::Pending;
    if (size >= 0 &&
        PreviewWire::ReadResult(m_received.mid(PreviewWire::kHeaderSize, size), result)) {
        m_received.remove(0, PreviewWire::kHeaderSize + size);
        return Reply::Complete;
    }
    Stop();
    Fail(QStringLiteral("%1 wrote a result that cannot be read").arg(Program()));
    return Reply::Failed;
}

QString PreviewProcess::Ended() {
    close(m_socket);
    m_socket = -1;
    int status = 0;
    while (waitpid(m_pid, &status, 0) < 0 && errno == EINTR) {
    }
    m_pid = -1;
    if (WIFSIGNALED(status))
        return QStringLiteral("%1 ended by signal %2 (%3)")
            .arg(Program())
            .arg(WTERMSIG(status))
            .arg(QString::fromLocal8Bit(strsignal(WTERMSIG(status))));
    return QStringLiteral("%1 ended with exit code %2").arg(Program()).arg(WEXITSTATUS(status));
}

void PreviewProcess::Restart() {
    Stop();
    Start();
}

void PreviewProcess::Stop() {
    if (m_pid <= 0) return;
    kill(m_pid, SIGKILL);
    Ended();
}

bool PreviewProcess::Fail(const QString& error) {
    m_error = error;
    return false;
}
