// Drives a fuzz target where there is no libFuzzer: all inputs of the corpus, then as many inputs again and
// again that differ from them in some bytes. The same run each time.
//   fuzz_x [-runs=N] CORPUS
// An input on which the target fails is left in the file failed-input, beside the program's other findings.
#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

using Input = std::vector<std::uint8_t>;

constexpr std::size_t kLongestInput = 1 << 16;  // bytes
constexpr std::uint8_t kTellingBytes[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, ' ', '\n',
                                          '"',  '*',  '[',  ']',  '\\', '|', ','};

Input current;

void KeepCurrentInput() {
  if (std::FILE* const file = std::fopen("failed-input", "wb")) {
    std::fwrite(current.data(), 1, current.size(), file);
    std::fclose(file);
  }
}

void OnAbort(int) {
  KeepCurrentInput();
  std::_Exit(134);
}

void Run(const Input& input) {
  current = input;
  LLVMFuzzerTestOneInput(current.data(), current.size());
}

std::vector<Input> ReadCorpus(const std::string& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    if (entry.is_regular_file()) paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<Input> corpus;
  for (const auto& path : paths) {
    std::ifstream file(path, std::ios::binary);
    corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  return corpus;
}

class Mutator {
 public:
  explicit Mutator(const std::vector<Input>& corpus) : corpus_(corpus) {}

  Input Next() {
    Input input = corpus_[Below(corpus_.size())];
    for (std::size_t changes = 1 + Below(4); changes > 0; --changes) Change(input);
    if (input.size() > kLongestInput) input.resize(kLongestInput);
    return input;
  }

 private:
  std::size_t Below(std::size_t count) {
    return std::uniform_int_distribution<std::size_t>(0, count - 1)(random_);
  }
  std::uint8_t AnyByte() {
    return (random_() & 1U) != 0 ? kTellingBytes[Below(std::size(kTellingBytes))]
                                 : static_cast<std::uint8_t>(random_());
  }

  void Change(Input& input) {
    const std::size_t at = Below(input.size() + 1);
    const auto place = input.begin() + static_cast<std::ptrdiff_t>(at);
    const std::size_t rest = input.size() - at;
    switch (Below(5)) {
      case 0:
        input.insert(place, AnyByte());
        break;
      case 1:
        if (rest > 0) *place = AnyByte();
        break;
      case 2:
        if (rest > 0) *place = static_cast<std::uint8_t>(*place ^ (1U << Below(8)));
        break;
      case 3:
        input.erase(place, place + static_cast<std::ptrdiff_t>(
                                       rest > 0 ? 1 + Below(std::min<std::size_t>(rest, 16)) : 0));
        break;
      default: {  // a piece of another one
        const Input& other = corpus_[Below(corpus_.size())];
        if (other.empty()) break;
        const std::size_t from = Below(other.size());
        const std::size_t length = 1 + Below(std::min<std::size_t>(other.size() - from, 64));
        const auto piece = other.begin() + static_cast<std::ptrdiff_t>(from);
        input.insert(place, piece, piece + static_cast<std::ptrdiff_t>(length));
        break;
      }
    }
  }

  const std::vector<Input>& corpus_;
  std::mt19937 random_{20240611};
};

}  // namespace

int main(int argc, char** argv) {
  long runs = 1000;
  std::string folder;
  for (int i = 1; i < argc; ++i) {
    const std::string_view argument = argv[i];
    if (argument.starts_with("-runs=")) {
      runs = std::atol(argv[i] + 6);
    } else {
      folder = argument;
    }
  }
  const std::vector<Input> corpus = ReadCorpus(folder);
  if (corpus.empty()) {
    std::fprintf(stderr, "There are no inputs in %s.\n", folder.c_str());
    return 1;
  }
  __sanitizer_set_death_callback(KeepCurrentInput);
  std::signal(SIGABRT, OnAbort);
  for (const Input& input : corpus) Run(input);
  Mutator mutator(corpus);
  for (long i = 0; i < runs; ++i) Run(mutator.Next());
  std::printf("%zu inputs of the corpus, %ld changed ones\n", corpus.size(), runs);
  return 0;
}
