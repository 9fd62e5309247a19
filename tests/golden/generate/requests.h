#ifndef ALIDADE_TESTS_GOLDEN_GENERATE_REQUESTS_H
#define ALIDADE_TESTS_GOLDEN_GENERATE_REQUESTS_H

#include <string>
#include <vector>

#include "golden/case.h"
#include "golden/inputs.h"

namespace generate {

// The arguments for which the literal reference is asked.
struct Request {
  char bit_class;
  std::string function;
  golden::Tokens arguments;
};

// The requests of one group, drawn from a stream of its own, so that a change in one group leaves the others alone. The
// golden files are those of round 0; other rounds draw other numbers in the same way.
class Requests {
public:
  Requests(std::uint64_t group, std::uint64_t round) : bits_(group + 1000 * round), fresh_(round != 0) {}

  void add(char bit_class, const std::string& function, const golden::Tokens& arguments) {
    list_.push_back({bit_class, function, arguments});
  }

  // `count` requests whose arguments are n numbers: three in eight short, the others of every kind in turn; several
  // times as many in a round other than that of the golden files.
  void add_numbers(char bit_class, const std::string& function, int n, int count);

  // n numbers of one kind, to be drawn again from the seed that is written.
  golden::Tokens numbers(const std::string& kind, int n);

  // One of the kinds of random_double, in turn.
  std::string kind();

  double number(const std::string& kind) { return golden::random_double(bits_, kind); }
  std::uint64_t word() { return bits_.next(); }
  int below(int n) { return bits_.below(n); }
  int any_integer() { return static_cast<int>(static_cast<std::uint32_t>(bits_.next() >> 32)); }
  int between(int lowest, int highest) { return lowest + bits_.below(highest - lowest + 1); }
  // A multiple of 1/4096 in [lowest, highest).
  double fraction(double lowest, double highest) { return lowest + (highest - lowest) * (below(4096) * 0x1p-12); }
  // Uniform in [lowest, highest), all digits used.
  double uniform(double lowest, double highest);
  int seed() { return bits_.below(1000000); }

  const std::vector<Request>& list() const { return list_; }

private:
  golden::RandomBits bits_;
  bool fresh_;
  int turn_ = 0;
  std::vector<Request> list_;
};

Requests coordinates_requests(std::uint64_t round);
Requests conversions_requests(std::uint64_t round);
Requests local_frames_requests(std::uint64_t round);
Requests angles_requests(std::uint64_t round);
Requests points_requests(std::uint64_t round);
Requests rectangles_requests(std::uint64_t round);
Requests lines_requests(std::uint64_t round);
Requests arcs_requests(std::uint64_t round);
Requests triads_requests(std::uint64_t round);
Requests covariances_requests(std::uint64_t round);
Requests matrices3_requests(std::uint64_t round);
Requests eigen_requests(std::uint64_t round);
Requests storage_requests(std::uint64_t round);
Requests products_requests(std::uint64_t round);
Requests operators_requests(std::uint64_t round);
Requests inversion_requests(std::uint64_t round);
Requests scalars_requests(std::uint64_t round);
Requests chi_square_requests(std::uint64_t round);
Requests tau_requests(std::uint64_t round);

}  // namespace generate

#endif
