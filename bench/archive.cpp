// Reading the directory of a ZIP archive, for three sizes against a plain read of the same bytes of the same
// file.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "tests/support/zip_builder.h"
#include "workbench/controls/archive/zip_directory.h"

namespace {

constexpr int kRuns = 7;
constexpr int kFolders = 100;

std::string ArchiveOf(int entries) {
  test_support::ZipBuilder builder;
  for (int i = 0; i < entries; ++i) {
    builder.Add("folder " + std::to_string(i % kFolders) + "/a model of usual length " + std::to_string(i) +
                ".obj");
  }
  return builder.Build();
}

class FileSource final : public controls::ByteSource {
 public:
  explicit FileSource(const std::filesystem::path& path)
      : size_(std::filesystem::file_size(path)), file_(path, std::ios::binary) {}
  uint64_t size() const override { return size_; }
  bool Read(uint64_t offset, std::span<uint8_t> to) override {
    file_.seekg(static_cast<std::streamoff>(offset));
    file_.read(reinterpret_cast<char*>(to.data()), static_cast<std::streamsize>(to.size()));
    return file_.good();
  }

 private:
  uint64_t size_;
  std::ifstream file_;
};

void Measure(int entries) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "bench_archive.zip";
  const std::string bytes = ArchiveOf(entries);
  std::ofstream(path, std::ios::binary) << bytes;
  const size_t directoryAt = bytes.find("PK\x01\x02");
  const double plain = bench::BestSeconds(kRuns, [&] {
    FileSource source(path);
    std::vector<uint8_t> directory(bytes.size() - directoryAt);
    source.Read(directoryAt, directory);
    bench::Keep(directory);
  });
  size_t nodes = 0;
  const double reading = bench::BestSeconds(kRuns, [&] {
    FileSource source(path);
    const controls::ZipListing listing = controls::ReadZipDirectory(source);
    nodes = listing.tree ? listing.tree->size() : 0;
  });
  std::filesystem::remove(path);
  if (nodes != static_cast<size_t>(entries + kFolders + 1)) std::printf("archive: the reading went wrong\n");
  const std::string count = std::to_string(entries);
  bench::PrintRatio("archive of " + count + " entries", reading, "plain read of its directory", plain);
  bench::PrintTime("archive of " + count + " entries, each", reading / entries);
}

}  // namespace

int main() {
  for (const int entries : {10'000, 30'000, 100'000}) Measure(entries);
}
