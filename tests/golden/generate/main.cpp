// alidade-golden: writes the golden files from the literal reference.
//
//     alidade-golden <directory>            writes the files
//     alidade-golden --check <directory>    compares; of class B only the arguments, since results may be another
//     libm's
//
// The library has no part in it: a golden file can therefore show that the library is wrong.

#include <cstdio>
#include <exception>
#include <fstream>
#include <set>
#include <stdexcept>
#include <string>

#include "golden/functions.h"
#include "golden/generate/recorded_math.h"
#include "golden/generate/requests.h"

namespace {

// A group and what it is asked.
struct Source {
  golden::Group group;
  generate::Requests requests;
};

std::string case_line(const golden::Group& group, const generate::Request& request) {
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
  return golden::format_case(c);
}

// Sorted, each case once.
std::set<std::string> case_lines(const Source& source) {
  std::set<std::string> lines;
  for (const generate::Request& request : source.requests.list()) {
    lines.insert(case_line(source.group, request));
  }
  return lines;
}

void write_group(const std::string& directory, const Source& source) {
  const std::set<std::string> lines = case_lines(source);
  std::ofstream file(directory + "/" + source.group.name + ".txt", std::ios::binary);
  file << "# alidade golden cases: " << source.group.about << ".\n"
       << "# Made from the literal reference by scripts/regenerate-golden; the format is described in README.md.\n"
       << "# class function arguments -> results [; math function, arguments, result]...\n";
  for (const std::string& line : lines) {
    file << line << '\n';
  }
  if (!file.flush()) {
    throw std::runtime_error("cannot write in " + directory);
  }
  std::printf("%-14s %6zu cases\n", source.group.name.c_str(), lines.size());
}

// What must be the same on every machine: all of a line, but of class B only the question.
std::string portable_part(const std::string& line) { return line[0] == 'B' ? line.substr(0, line.find(" ->")) : line; }

void check_group(const std::string& directory, const Source& source) {
  std::set<std::string> made;
  for (const std::string& line : case_lines(source)) {
    made.insert(portable_part(line));
  }
  const std::string name = directory + "/" + source.group.name + ".txt";
  std::ifstream file(name);
  std::set<std::string> kept;
  for (std::string line; std::getline(file, line);) {
    if (!line.empty() && line[0] != '#') {
      kept.insert(portable_part(line));
    }
  }
  for (const std::string& line : made) {
    if (kept.count(line) == 0) {
      throw std::runtime_error("not in " + name + ": " + line);
    }
  }
  if (kept.size() != made.size()) {
    throw std::runtime_error(name + " holds cases that are no longer made");
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool check = argc == 3 && std::string(argv[1]) == "--check";
  if (argc != 2 && !check) {
    std::printf("usage: alidade-golden [--check] <directory>\n");
    return 1;
  }
  try {
    for (const Source& source :
         {Source{golden::coordinates(), generate::coordinates_requests()},
          Source{golden::conversions(), generate::conversions_requests()},
          Source{golden::local_frames(), generate::local_frames_requests()},
          Source{golden::angles(), generate::angles_requests()}, Source{golden::points(), generate::points_requests()},
          Source{golden::rectangles(), generate::rectangles_requests()},
          Source{golden::lines(), generate::lines_requests()}, Source{golden::arcs(), generate::arcs_requests()},
          Source{golden::triads(), generate::triads_requests()},
          Source{golden::covariances(), generate::covariances_requests()},
          Source{golden::matrices3(), generate::matrices3_requests()},
          Source{golden::eigen(), generate::eigen_requests()}, Source{golden::storage(), generate::storage_requests()},
          Source{golden::products(), generate::products_requests()},
          Source{golden::operators(), generate::operators_requests()},
          Source{golden::inversion(), generate::inversion_requests()},
          Source{golden::scalars(), generate::scalars_requests()},
          Source{golden::chi_square(), generate::chi_square_requests()},
          Source{golden::tau(), generate::tau_requests()}}) {
      (check ? check_group : write_group)(argv[argc - 1], source);
    }
  } catch (const std::exception& e) {
    std::printf("alidade-golden: %s\n", e.what());
    return 1;
  }
  return 0;
}
