// SPDX-License-Identifier: MIT
// What an error number of the system means for the user. The standard library only, as the bridges
// use it too.
#pragma once

#include "base/result.h"

#include <cerrno>

namespace fennel {

// Only kinds that lead to different advice for the user are told apart.
inline FailureKind failureKindOf(int error)
{
    switch (error) {
    case ENOENT:
    case ENOTDIR:
        return FailureKind::NotFound;
    case EACCES:
    case EPERM:
    case EROFS:
        return FailureKind::NoPermission;
    case ENOSPC:
    case EDQUOT:
        return FailureKind::NoSpace;
    default:
        return FailureKind::Io;
    }
}

} // namespace fennel
