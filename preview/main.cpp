// vordpm-preview: the child process in which preview scripts run (see PreviewWorker).
#include <unistd.h>

#include "PreviewWorker.h"

int main(int argc, char** argv) {
    PreviewLimits limits;
    if (!PreviewWorker::ParseArguments(argc, argv, limits)) return PreviewWorker::BadArguments;
    return PreviewWorker(limits).Serve(STDIN_FILENO, STDOUT_FILENO);
}
