// alidade-golden: writes the golden files from the literal reference.
//
//     alidade-golden <directory>            writes the files
//     alidade-golden --check <directory>    compares; of class B only the arguments, since results may be another
//     libm's
//     alidade-golden --rounds FIRST LAST <directory>
//                                           writes files with other numbers, drawn in the same way once a round
//
// The library has no part in it: a golden file can therefore show that the library is wrong.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <unordered_set>
#include <vector>

#include "golden/case_file.h"
#include "golden/functions.h"
#include "golden/generate/recorded_math.h"
#include "golden/generate/requests.h"

namespace {

// A group and what it is asked in a round.
struct Source {
  golden::Group (*group)();
  generate::Requests (*requests)(std::uint64_t round);
  bool large = false;
};

constexpr Source kSources[] = {
    {golden::coordinates, generate::coordinates_requests},
    {golden::conversions, generate::conversions_requests},
    {golden::local_frames, generate::local_frames_requests},
    {golden::angles, generate::angles_requests},
    {golden::points, generate::points_requests},
    {golden::rectangles, generate::rectangles_requests},
    {golden::lines, generate::lines_requests},
    {golden::arcs, generate::arcs_requests},
    {golden::triads, generate::triads_requests},
    {golden::covariances, generate::covariances_requests},
    {golden::matrices3, generate::matrices3_requests},
    {golden::eigen, generate::eigen_requests},
    {golden::storage, generate::storage_requests, true},
    {golden::products, generate::products_requests, true},
    {golden::operators, generate::operators_requests, true},
    {golden::inversion, generate::inversion_requests, true},
    {golden::scalars, generate::scalars_requests},
    {golden::chi_square, generate::chi_square_requests},
    {golden::tau, generate::tau_requests},
};

// The golden files are those of round 0.
struct Rounds {
  std::uint64_t first = 0;
  std::uint64_t last = 0;
};

// Of the functions of large matrices, which have long cases, a fresh round asks every eighth, the next round the next
// ones.
std::vector<generate::Request> requests_of(const Source& source, const Rounds& rounds) {
  constexpr std::uint64_t kShare = 8;
  std::vector<generate::Request> taken;
  for (std::uint64_t round = rounds.first; round <= rounds.last; ++round) {
    const generate::Requests requests = source.requests(round);
    std::map<std::string, std::uint64_t> turns;
    for (const generate::Request& request : requests.list()) {
      if (round == 0 || !source.large || (turns[request.function]++ + round) % kShare == 0) {
        taken.push_back(request);
      }
    }
  }
  return taken;
}

golden::Case answered(const golden::Group& group, const generate::Request& request) {
  const golden::Function* function = golden::find_function(group, request.function);
  if (function == nullptr) {
    throw std::runtime_error(group.name + ": nothing bound to " + request.function);
  }
  golden::Arguments in(request.arguments.list());
  golden::Tokens out;
  golden::Case c;
  c.bit_class = request.bit_class;
  c.function = request.function;
  c.arguments = request.arguments.list();
  {
    const generate::RecordedMath recorded;
    function->run(in, out);
    c.math_calls = recorded.calls();
  }
  c.results = out.list();
  if (!in.done()) {
    throw std::runtime_error(c.function + ": arguments left over");
  }
  if (c.bit_class == 'A' && !c.math_calls.empty()) {
    throw std::runtime_error(c.function + " is class A and calls " + c.math_calls[0].function);
  }
  return c;
}

// The first cases under a heading are written out for people. In the others the seed stands for numbers that were
// drawn, where that is shorter, and the hash for long results.
std::string line_of(golden::Case c, bool for_people) {
  constexpr std::size_t kLong = 24;
  const std::vector<std::string> numbers = golden::Arguments(c.arguments).list();
  if (for_people || golden::joined(numbers).size() <= golden::joined(c.arguments).size()) {
    c.arguments = numbers;
  }
  if (!for_people && golden::joined(c.results).size() > kLong) {
    c.results = {golden::hash_of_words(c.results)};
  }
  return golden::format_case(c);
}

struct Section {
  std::string heading;
  std::vector<std::string> lines;
};

// In the order of the requests, each case once.
std::vector<Section> sections_of(const golden::Group& group, const std::vector<generate::Request>& requests) {
  constexpr std::size_t kForPeople = 3;
  std::vector<Section> sections;
  std::unordered_set<std::string> seen;
  for (const generate::Request& request : requests) {
    const golden::Case c = answered(group, request);
    const std::string heading = golden::format_heading(c);
    if (!seen.insert(heading + golden::joined(golden::Arguments(c.arguments).list())).second) {
      continue;
    }
    auto section =
        std::find_if(sections.begin(), sections.end(), [&heading](const Section& s) { return s.heading == heading; });
    if (section == sections.end()) {
      section = sections.insert(section, {heading, {}});
    }
    section->lines.push_back(line_of(c, section->lines.size() < kForPeople));
  }
  return sections;
}

void write_group(const std::string& directory, const golden::Group& group,
                 const std::vector<generate::Request>& requests) {
  golden::Seal seal;
  std::string body;
  for (const Section& section : sections_of(group, requests)) {
    seal.add(section.heading, false);
    body += section.heading + '\n';
    for (const std::string& line : section.lines) {
      seal.add(line, true);
      body += line + '\n';
    }
  }
  std::ofstream file(directory + "/" + group.name + ".txt", std::ios::binary);
  file << "# alidade golden cases: " << group.about << ".\n"
       << "# Made from the literal reference by scripts/regenerate-golden; the format is described in README.md.\n"
       << seal.text() << '\n'
       << body;
  if (!file.flush()) {
    throw std::runtime_error("cannot write in " + directory);
  }
}

// What must be the same on every machine: all of a line, but of class B only the question.
std::string portable_part(char bit_class, const std::string& line) {
  return bit_class == 'B' ? line.substr(0, line.find("-> ")) : line;
}

void check_group(const std::string& directory, const golden::Group& group,
                 const std::vector<generate::Request>& requests) {
  const std::string name = directory + "/" + group.name + ".txt";
  std::vector<std::string> kept;
  for (const golden::PlacedCase& placed : golden::read_cases(name)) {
    kept.push_back(golden::format_heading(placed.what) + portable_part(placed.what.bit_class, placed.text));
  }
  std::vector<std::string> made;
  for (const Section& section : sections_of(group, requests)) {
    for (const std::string& line : section.lines) {
      made.push_back(section.heading + portable_part(section.heading[1], line));
    }
  }
  const auto [ours, theirs] = std::mismatch(made.begin(), made.end(), kept.begin(), kept.end());
  if (ours != made.end() || theirs != kept.end()) {
    throw std::runtime_error(
        name + " is another file than is made now; first difference:\n    made: " + (ours == made.end() ? "-" : *ours) +
        "\n    kept: " + (theirs == kept.end() ? "-" : *theirs));
  }
}

}  // namespace

int main(int argc, char** argv) {
  const std::string option = argc > 2 ? argv[1] : "";
  const bool check = argc == 3 && option == "--check";
  const bool other = argc == 5 && option == "--rounds";
  if (argc != 2 && !check && !other) {
    std::printf("usage: alidade-golden [--check | --rounds FIRST LAST] <directory>\n");
    return 1;
  }
  Rounds rounds;
  if (other) {
    rounds = {std::strtoull(argv[2], nullptr, 10), std::strtoull(argv[3], nullptr, 10)};
  }
  try {
    if (!check) {
      std::filesystem::create_directories(argv[argc - 1]);
    }
    for (const Source& source : kSources) {
      (check ? check_group : write_group)(argv[argc - 1], source.group(), requests_of(source, rounds));
    }
  } catch (const std::exception& e) {
    std::printf("alidade-golden: %s\n", e.what());
    return 1;
  }
  return 0;
}
