#include "platform/hosted/disk/former_hives.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <set>
#include <sstream>

#include "platform/hosted/file_replacement.h"
#include "platform/hosted/hives/hive_replacement.h"
#include "platform/hosted/host_file.h"
#include "platform/hosted/hosted_pc.h"

namespace tidemark::hosted {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".tidemark-";

// Files in the hive's folder that are called NAME or NAME.LOG..., with the ending.
std::vector<fs::path> WithEnding(const fs::path& hive, const std::string& ending) {
  std::vector<fs::path> found;
  const std::string name = hive.filename().string();
  std::error_code error;
  for (fs::directory_iterator entry(hive.parent_path(), error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string other = entry->path().filename().string();
    const bool of_hive = other.starts_with(name) && other.ends_with(ending) &&
                         other.size() >= name.size() + ending.size();
    if (of_hive && (other.size() == name.size() + ending.size() || other[name.size()] == '.')) {
      found.push_back(entry->path());
    }
  }
  return found;
}

void Rename(const fs::path& from, const fs::path& to, const char* step) {
  if (before_hive_step != nullptr) before_hive_step(step);
  if (rename(from.c_str(), to.c_str()) != 0) {
    throw HostedPcError(from.string() + ": can't be put back: " + std::strerror(errno));
  }
}

}  // namespace

FormerHives::FormerHives(fs::path record, fs::path disk)
    : record_(std::move(record)), disk_(std::move(disk)) {
  std::ifstream lines(record_);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream text(line);
    Replacement known{};
    if (!(text >> std::hex >> known.fingerprint)) continue;
    text.ignore();
    if (std::getline(text, known.hive, '\t') && std::getline(text, known.former)) {
      replacements_.push_back(std::move(known));
    }
  }
}

fs::path FormerHives::NextName(const fs::path& hive) {
  for (int number = 1;; ++number) {
    const std::string ending = std::string(kEnding) + std::to_string(number);
    if (WithEnding(hive, ending).empty()) return hive.string() + ending;
  }
}

void FormerHives::Note(const fs::path& hive, std::uint64_t fingerprint, const fs::path& former) {
  replacements_.push_back(
      {hive.lexically_relative(disk_), former.lexically_relative(disk_), fingerprint});
  const fs::path fresh = record_.string() + ".new";
  std::ofstream lines(fresh, std::ios::trunc);
  for (const Replacement& known : replacements_) {
    lines << std::hex << known.fingerprint << '\t' << known.hive << '\t' << known.former << '\n';
  }
  lines.close();
  if (!lines) throw HostedPcError(fresh.string() + ": can't be written");
  ReplaceFile(fresh, record_);
}

fs::path FormerHives::FormerOf(const fs::path& hive, std::uint64_t fingerprint) const {
  const std::string name = hive.lexically_relative(disk_);
  std::error_code error;
  for (auto known = replacements_.rbegin(); known != replacements_.rend(); ++known) {
    if (known->hive != name || known->fingerprint != fingerprint) continue;
    const fs::path former = disk_ / known->former;
    return fs::is_regular_file(former, error) ? former : fs::path();
  }
  return {};
}

void FormerHives::PutBack(const fs::path& hive, const fs::path& former) {
  const std::string former_name = former.string();
  const std::string ending = former_name.substr(former_name.rfind(kEnding));
  Rename(former, hive, "put the former hive back");
  // Without them the hive is whole too: it was closed cleanly.
  for (const fs::path& log : WithEnding(hive, ending)) {
    const std::string name = log.string();
    Rename(log, name.substr(0, name.size() - ending.size()), "put a log back");
  }
  const HostFile folder(open(hive.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) fsync(folder.get());
}

std::vector<fs::path> FormerHives::Kept() const {
  std::set<fs::path> kept;
  std::error_code error;
  for (const Replacement& known : replacements_) {
    const std::string ending = known.former.substr(known.former.rfind(kEnding));
    const std::vector<fs::path> files = WithEnding(disk_ / known.hive, ending);
    kept.insert(files.begin(), files.end());
    const fs::path cut_off = NewHiveName(disk_ / known.hive);
    if (fs::exists(cut_off, error)) kept.insert(cut_off);
  }
  return {kept.begin(), kept.end()};
}

}  // namespace tidemark::hosted
