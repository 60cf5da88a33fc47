// How far a long piece of family-table work is, and the way to stop it: the work reports its
// steps and ends early, leaving nothing changed, when the report answers that it is to stop.
#pragma once

#include <QtGlobal>

class FamilyProgress {
public:
    virtual ~FamilyProgress() = default;

    // `done` of `total` steps; false when the work is to stop now. Called often: an answer must
    // be cheap.
    virtual bool Report(qint64 done, qint64 total) = 0;

    // Progress that nobody watches and that never stops the work.
    static FamilyProgress& None();
};
