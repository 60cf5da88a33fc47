// The messages between a preview runner and its child process: a request (the script and its
// parameters) and the result, each one frame of a 4-byte length followed by that many bytes.
#pragma once

#include <sys/types.h>

#include <QByteArray>
#include <functional>

#include "PreviewParameters.h"
#include "PreviewResult.h"

class PreviewWire {
public:
    static constexpr qsizetype kHeaderSize = 4;
    // Larger frames are refused: far beyond what a script within its memory limit can draw.
    static constexpr qsizetype kMaxFrameSize = qsizetype(1) << 30;

    static QByteArray Request(const QByteArray& script, const PreviewParameters& parameters);
    static QByteArray Result(const PreviewResult& result);
    // Read from a frame's bytes after its header; false for bytes that are not such a frame.
    static bool ReadRequest(const QByteArray& body, QByteArray& script,
                            PreviewParameters& parameters);
    static bool ReadResult(const QByteArray& body, PreviewResult& result);
    // The length of the frame's body from its header; -1 when it is out of range.
    static qsizetype BodySize(const char* header);

    // Moves `size` bytes with `step`, a read or write of the bytes from `done` on that returns
    // what the system call returns; goes on when a call is interrupted. False when the
    // descriptor ends or fails first.
    static bool Transfer(qsizetype size, const std::function<ssize_t(qsizetype done)>& step);
};
