#include "base/whole_file.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr std::size_t MostBytes = std::size_t{64} << 20;
constexpr std::size_t BufferSize = std::size_t{256} << 10;

std::string Trouble(const std::string &path, const char *what, int error) {
  return path + ": " + what + ": " + std::strerror(error);
}

std::string FolderOf(const std::string &path) {
  const auto slash = path.rfind('/');
  return slash == path.npos ? "./" : path.substr(0, slash + 1);
}

// The file a chain of links ends at, which need not exist.
std::string FollowLinks(std::string path) {
  for (int hops = 0; hops < 40; ++hops) {
    char target[4096];
    const ssize_t size = readlink(path.c_str(), target, sizeof target);
    if (size <= 0 || size == static_cast<ssize_t>(sizeof target)) break;
    const std::string next(target, static_cast<std::size_t>(size));
    path = next.front() == '/' ? next : FolderOf(path) + next;
  }
  return path;
}

int WriteAll(int handle, std::string_view bytes) { // errno of the first failure, or 0
  while (!bytes.empty()) {
    const ssize_t done = write(handle, bytes.data(), bytes.size());
    if (done < 0 && errno == EINTR) continue;
    if (done <= 0) return done < 0 ? errno : EIO;
    bytes.remove_prefix(static_cast<std::size_t>(done));
  }
  return 0;
}

void Abandon(StreamedFile &file) {
  if (file.Handle >= 0) close(file.Handle);
  file.Handle = -1;
  if (!file.Draft.empty()) unlink(file.Draft.c_str());
  file.Draft.clear();
  file.Buffer.clear();
}

void Fail(StreamedFile &file, const char *what, int error) {
  if (file.Trouble.empty()) file.Trouble = Trouble(file.Path, what, error);
  Abandon(file);
}

void Flush(StreamedFile &file, std::string_view bytes) {
  if (file.Handle < 0) return;
  if (const int error = WriteAll(file.Handle, bytes)) Fail(file, "cannot be written", error);
}

mode_t NewFileMode() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

std::string Commit(StreamedFile &file, bool toDisk) {
  Flush(file, file.Buffer);
  if (!file.Trouble.empty()) return file.Trouble;
  if (file.Handle < 0) return file.Trouble = file.Path + ": was not opened for writing";
  const bool draft = !file.Draft.empty();
  if (draft && toDisk && fsync(file.Handle) != 0) {
    Fail(file, "cannot be written", errno);
    return file.Trouble;
  }
  const int closed = close(file.Handle);
  file.Handle = -1;
  if (closed != 0 || (draft && rename(file.Draft.c_str(), file.Path.c_str()) != 0)) {
    Fail(file, "cannot be written", errno);
    return file.Trouble;
  }
  file.Draft.clear();
  file.Buffer.clear();
  if (draft && toDisk) {
    const int folder = open(FolderOf(file.Path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder >= 0) {
      fsync(folder); // the file itself is safe by now; not every file system can do this
      close(folder);
    }
  }
  return {};
}

} // namespace

std::string ReadWhole(const std::string &path, std::string &bytes) {
  const int handle = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (handle < 0) return Trouble(path, "cannot be opened", errno);
  struct stat facts {};
  std::string trouble;
  if (fstat(handle, &facts) != 0)
    trouble = Trouble(path, "cannot be read", errno);
  else if (S_ISDIR(facts.st_mode))
    trouble = path + ": is a folder, not a file";
  else if (!S_ISREG(facts.st_mode))
    trouble = path + ": is not a plain file";
  else if (static_cast<std::size_t>(facts.st_size) > MostBytes)
    trouble = path + ": is larger than 64 MiB";
  std::string read;
  if (trouble.empty()) {
    read.resize(static_cast<std::size_t>(facts.st_size) + 1); // one more shows the end, or that the file grew
    std::size_t size = 0;
    for (;;) {
      if (size == read.size()) read.resize(size + BufferSize);
      const ssize_t got = ::read(handle, read.data() + size, read.size() - size);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) trouble = Trouble(path, "cannot be read", errno);
      if (got > 0) size += static_cast<std::size_t>(got);
      if (size > MostBytes) trouble = path + ": is larger than 64 MiB";
      if (got <= 0 || !trouble.empty()) break;
    }
    read.resize(size);
  }
  close(handle);
  if (trouble.empty()) bytes = std::move(read);
  return trouble;
}

bool FileExists(const std::string &path) {
  struct stat facts {};
  return stat(path.c_str(), &facts) == 0 && !S_ISDIR(facts.st_mode);
}

void OpenStreamed(StreamedFile &file, const std::string &path) {
  Abandon(file);
  file.Trouble.clear();
  file.Path = FollowLinks(path);
  struct stat old {};
  const bool stands = stat(file.Path.c_str(), &old) == 0;
  if (stands && S_ISDIR(old.st_mode)) {
    file.Trouble = path + ": is a folder, not a file";
    return;
  }
  if (stands && faccessat(AT_FDCWD, file.Path.c_str(), W_OK, AT_EACCESS) != 0)
    return Fail(file, "cannot be written", errno);
  if (stands && !S_ISREG(old.st_mode)) {
    file.Handle = open(file.Path.c_str(), O_WRONLY | O_CLOEXEC);
    if (file.Handle < 0) Fail(file, "cannot be written", errno);
    return;
  }
  std::string draft = FolderOf(file.Path) + ".morvandel-XXXXXX";
  file.Handle = mkostemp(draft.data(), O_CLOEXEC);
  if (file.Handle < 0) return Fail(file, "cannot be written", errno);
  file.Draft = draft;
  // Only a privileged user can give a file away; for others the new file is their own.
  if (stands && fchown(file.Handle, old.st_uid, old.st_gid) != 0) errno = 0;
  if (fchmod(file.Handle, stands ? old.st_mode & 07777 : NewFileMode()) != 0)
    return Fail(file, "cannot be written", errno);
  file.Buffer.reserve(BufferSize);
}

void WriteStreamed(StreamedFile &file, std::string_view bytes) {
  if (file.Handle < 0) return;
  if (file.Buffer.size() + bytes.size() > BufferSize) {
    Flush(file, file.Buffer);
    file.Buffer.clear();
    if (bytes.size() > BufferSize / 2) return Flush(file, bytes);
  }
  file.Buffer += bytes;
}

std::string CommitStreamed(StreamedFile &file) { return Commit(file, false); }

StreamedFile::~StreamedFile() { Abandon(*this); }

std::string WriteWhole(const std::string &path, std::string_view bytes) {
  StreamedFile file;
  OpenStreamed(file, path);
  Flush(file, bytes);
  return Commit(file, true);
}

std::string WriteWholeSoon(const std::string &path, std::string_view bytes) {
  StreamedFile file;
  OpenStreamed(file, path);
  Flush(file, bytes);
  return Commit(file, false);
}
