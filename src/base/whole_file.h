#pragma once
#include <cstdio>
#include <string>
#include <string_view>

// Each returns an empty text when all went well, else one sentence that names the file and the reason.
std::string ReadWhole(const std::string &path, std::string &bytes);          // refuses directories and files over 64 MiB
std::string WriteWhole(const std::string &path, std::string_view bytes);     // new file beside it, flushed, then renamed
bool FileExists(const std::string &path);

// A file too large to hold: written piece by piece beside its place and renamed into it by Commit; without Commit
// nothing is left behind and the old file stays.
struct StreamedFile {
  std::FILE *Handle = nullptr;
  std::string Path, Draft, Trouble;  // Trouble: the first error, empty while all is well
  StreamedFile() = default;
  StreamedFile(const StreamedFile &) = delete;
  StreamedFile &operator=(const StreamedFile &) = delete;
  ~StreamedFile();
};
void OpenStreamed(StreamedFile &, const std::string &path);
void WriteStreamed(StreamedFile &, std::string_view bytes);
std::string CommitStreamed(StreamedFile &);  // the trouble, or empty
