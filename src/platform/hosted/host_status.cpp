#include "platform/hosted/host_status.h"

#include <cerrno>

namespace tidemark::hosted {

constexpr LONG kErrorGeneralFailure = 31;

LONG StatusOfHostError(int error) {
  switch (error) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
      return ERROR_PATH_NOT_FOUND;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ELOOP:
      return ERROR_ACCESS_DENIED;
    case EEXIST:
      return ERROR_ALREADY_EXISTS;
    case ENOSPC:
    case EDQUOT:
      return ERROR_DISK_FULL;
    case ENAMETOOLONG:
    case EILSEQ:
    case EINVAL:
      return ERROR_INVALID_NAME;
    default:
      return kErrorGeneralFailure;
  }
}

}  // namespace tidemark::hosted
