#pragma once
#include <string>
#include <string_view>

// Each returns an empty text when all went well, else one sentence that names the file and the reason.
// Writing goes into a new file beside the old one which is then renamed into its place, so the old file stays
// on any failure; links are followed, the mode of the file is kept, a device or pipe is written straight.
std::string ReadWhole(const std::string &path,
                      std::string &bytes); // refuses folders, devices and files over 64 MiB
std::string WriteWhole(const std::string &path, std::string_view bytes); // on the disk when it returns
// Left to the system to bring to the disk: it outlives the program, however that ends, not a loss of power.
std::string WriteWholeSoon(const std::string &path, std::string_view bytes);
bool FileExists(const std::string &path);

// A file too large to hold: written piece by piece beside its place and renamed into it by CommitStreamed;
// without that nothing is left behind and the old file stays. It is not forced to the disk: it serves what a
// run can make anew.
struct StreamedFile {
  int Handle = -1;
  std::string Path, Draft; // Path with its links followed; Draft is empty for a device or pipe
  std::string Trouble;     // the first error, empty while all is well
  std::string Buffer;
  StreamedFile() = default;
  StreamedFile(const StreamedFile &) = delete;
  StreamedFile &operator=(const StreamedFile &) = delete;
  ~StreamedFile();
};
void OpenStreamed(StreamedFile &, const std::string &path);
void WriteStreamed(StreamedFile &, std::string_view bytes);
std::string CommitStreamed(StreamedFile &); // the trouble, or empty
