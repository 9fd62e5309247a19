#ifndef ALIDADE_TESTS_SUPPORT_PRODUCT_SHAPES_H
#define ALIDADE_TESTS_SUPPORT_PRODUCT_SHAPES_H

// Every product of the library over a whole space of shapes, on every instruction set, bit for bit against the literal
// references, with all operands in buffers of exactly the size that the shape implies, beside inaccessible memory.
//
// An element of a product depends on the number of terms and on its own row of one factor and column of another; that
// the product has further rows and columns makes no difference to it. So the reference runs once for each number of
// terms, on operands as large as the largest shape, and the expectation of a shape is the leading part of that result.

#include <alidade/matrix.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "reference/products.h"
#include "support/bits.h"
#include "support/guarded_buffer.h"
#include "support/kernel_sets.h"
#include "support/nasty.h"
#include "support/operator_calls.h"
#include "support/product_cases.h"

namespace product_shapes {

// What a shape consists of. Spare is by how much targets, and factors that may be higher than the product needs, exceed
// the product.
enum Extent { kRows, kColumns, kTerms, kInner, kSpare, kExtents };
using Shape = std::array<int, kExtents>;

enum class Layout { kDense, kPacked, kDiagonal };

// How an operand or target is stored and which extents give its rows and columns; a packed matrix has the order of the
// larger one, a diagonal the length of the smaller.
struct Form {
  Layout layout;
  Extent rows;
  Extent columns;
  bool higher = false;  // has the spare rows
  bool wider = false;   // and the spare columns

  int row_count(const Shape& shape) const { return shape[rows] + (higher ? shape[kSpare] : 0); }
  int column_count(const Shape& shape) const { return shape[columns] + (wider ? shape[kSpare] : 0); }
  std::size_t size(const Shape& shape) const {
    const auto r = static_cast<std::size_t>(row_count(shape)), c = static_cast<std::size_t>(column_count(shape));
    const std::size_t order = std::max(r, c);
    return layout == Layout::kDense ? r * c : layout == Layout::kPacked ? order * (order + 1) / 2 : std::min(r, c);
  }
  bool free() const { return rows < kTerms || columns < kTerms; }
};

using Operands = std::array<double*, 3>;
using Function = std::function<void(const Operands& in, double* target, const Shape& shape, char op)>;

struct Product {
  std::string name;
  std::vector<Form> operands;
  Form target;
  std::vector<char> codes;
  bool clears_spare;  // '=' and '|' clear the target by its own size
  Function tested;
  Function reference;

  bool has(Extent extent) const {
    const auto uses = [extent](const Form& form) { return form.rows == extent || form.columns == extent; };
    return uses(target) || std::any_of(operands.begin(), operands.end(), uses);
  }
};

inline std::ostream& operator<<(std::ostream& out, const Product& product) { return out << product.name; }

// Known to the compiler as dense or packed, so that the views of an operand can be made from its form.
struct DenseForm : Form {};
struct PackedForm : Form {};

inline DenseForm dense(Extent rows, Extent columns) { return {{Layout::kDense, rows, columns}}; }
inline PackedForm packed(Extent rows, Extent columns) { return {{Layout::kPacked, rows, columns}}; }
inline PackedForm packed(Extent order) { return packed(order, order); }
inline Form diagonal(Extent rows, Extent columns) { return {Layout::kDiagonal, rows, columns}; }
inline Form vector(Extent length) { return diagonal(length, length); }
template <class F>
F higher(F form) {
  form.higher = true;
  return form;
}
template <class F>
F larger(F form) {
  form.higher = form.wider = true;
  return form;
}

inline std::vector<char> all_codes() {
  return std::vector<char>(std::begin(product_cases::kCodes), std::end(product_cases::kCodes));
}

// SMatrProduct with operands in the given modes.
inline Product mixed(int a, int b) {
  const std::string kNames[] = {"Dense", "Packed", "Diagonal"};
  const auto form = [](int mode, Extent rows, Extent columns) -> Form {
    return mode == 0 ? dense(rows, columns) : mode == 1 ? packed(rows, columns) : diagonal(rows, columns);
  };
  const bool diagonals = a == 2 && b == 2;
  return {"SMatrProduct" + kNames[a] + kNames[b],
          {form(a, kRows, diagonals ? kRows : kTerms), diagonals ? vector(kRows) : form(b, kTerms, kColumns)},
          diagonals ? vector(kRows) : dense(kRows, kColumns),
          {'='},
          false,
          [a, b](const Operands& in, double* t, const Shape& s, char) {
            SMatrProduct(in[0], in[1], t, s[kRows], s[kTerms], a, b, s[kColumns]);
          },
          [a, b](const Operands& in, double* t, const Shape& s, char) {
            reference::mixed_product(in[0], in[1], t, s[kRows], s[kTerms], a, b, s[kColumns]);
          }};
}

// The products of bare buffers. Those with a diagonal factor are in a list of their own: no instruction set
// treats them apart.
inline std::vector<Product> kernels() {
  return {
      {"MatrixProduct",
       {dense(kRows, kTerms), dense(kTerms, kColumns)},
       dense(kRows, kColumns),
       {'='},
       false,
       [](const Operands& in, double* t, const Shape& s, char) {
         MatrixProduct(in[0], in[1], t, s[kRows], s[kTerms], s[kColumns]);
       },
       [](const Operands& in, double* t, const Shape& s, char) {
         reference::matrix_product(in[0], in[1], t, s[kRows], s[kTerms], s[kColumns]);
       }},
      {"MAtB",
       {dense(kTerms, kRows), dense(kTerms, kColumns)},
       dense(kRows, kColumns),
       {'='},
       false,
       [](const Operands& in, double* t, const Shape& s, char) {
         MAtB(in[0], in[1], t, s[kTerms], s[kRows], s[kColumns]);
       },
       [](const Operands& in, double* t, const Shape& s, char) {
         reference::transposed_product(in[0], in[1], t, s[kTerms], s[kRows], s[kColumns]);
       }},
      mixed(0, 0),
      mixed(0, 1),
      mixed(1, 0),
      mixed(1, 1),
      {"SMatrProductAQAt",
       {dense(kRows, kTerms), packed(kTerms)},
       packed(kRows),
       all_codes(),
       false,
       [](const Operands& in, double* t, const Shape& s, char op) {
         SMatrProductAQAt(in[0], in[1], t, s[kRows], s[kTerms], op);
       },
       [](const Operands& in, double* t, const Shape& s, char op) {
         reference::congruence_product(in[0], in[1], t, s[kRows], s[kTerms], op);
       }},
      {"MRAtQL",
       {dense(kTerms, kRows), packed(kTerms), vector(kTerms)},
       vector(kRows),
       all_codes(),
       false,
       [](const Operands& in, double* t, const Shape& s, char op) {
         MRAtQL(t, op, in[0], in[1], in[2], s[kTerms], s[kRows]);
       },
       [](const Operands& in, double* t, const Shape& s, char op) {
         reference::transposed_congruence_vector(t, op, in[0], in[1], in[2], s[kTerms], s[kRows]);
       }},
  };
}

inline std::vector<Product> diagonal_kernels() {
  return {mixed(0, 2), mixed(2, 0), mixed(1, 2), mixed(2, 1), mixed(2, 2)};
}

// What the library and what the reference take for an operand.
struct Tested {
  static TMatrix view(const DenseForm& f, double* p, const Shape& s) {
    return TMatrix(p, f.row_count(s), f.column_count(s));
  }
  static TSMatrix view(const PackedForm& f, double* p, const Shape& s) { return TSMatrix(p, f.row_count(s)); }
};
struct Literal {
  static reference::Dense view(const DenseForm& f, double* p, const Shape& s) {
    return {p, f.row_count(s), f.column_count(s)};
  }
  static reference::Packed view(const PackedForm& f, double* p, const Shape& s) { return {p, f.row_count(s)}; }
};

template <class Views, class Call, class Target, std::size_t... k, class... Operand>
void call_with(const Call& call, Target target, char op, const Operands& in, const Shape& shape,
               std::index_sequence<k...>, const Operand&... operands) {
  call(target, op, Views::view(operands, in[k], shape)...);
}

enum class Clears { kProduct, kWholeTarget };

template <class Call, class Target, class... Operand>
Product operation(const char* name, Call call, Clears clears, Target target, Operand... operands) {
  constexpr std::index_sequence_for<Operand...> kAll;
  return {name,
          {operands...},
          target,
          all_codes(),
          clears == Clears::kWholeTarget,
          [=](const Operands& in, double* t, const Shape& s, char op) {
            call_with<Tested>(call, Tested::view(target, t, s), op, in, s, kAll, operands...);
          },
          [=](const Operands& in, double* t, const Shape& s, char op) {
            Shape bare = s;
            bare[kSpare] = 0;
            call_with<Literal>(call, Literal::view(target, t, bare), op, in, s, kAll, operands...);
          }};
}

// The operator family.
inline std::vector<Product> operators() {
  using namespace operator_calls;
  constexpr Clears kProduct = Clears::kProduct, kWhole = Clears::kWholeTarget;
  const DenseForm target = dense(kRows, kColumns), r = dense(kRows, kTerms), rt = dense(kTerms, kRows);
  const DenseForm right = dense(kTerms, kColumns), right_t = dense(kColumns, kTerms);
  const PackedForm s = packed(kTerms), congruence = packed(kRows);
  return {
      operation("SMATRopRt_S_R", rt_s_r, kWhole, higher(congruence), rt, s),
      operation("SMATRopRt_R", rt_r, kWhole, higher(congruence), rt),
      operation("SMATRopABti", a_bt, kWhole, higher(congruence), r, r),
      operation("SMATRopS1_S2", s1_s2, kWhole, higher(s), s, s),
      operation("SMATRopR_S_Rt", r_s_rt, kProduct, congruence, r, s),
      operation("MATRopS_R", s_r, kWhole, larger(right), s, right),
      operation("MATRopR_S", r_s, kWhole, larger(r), r, s),
      operation("MATRopR1t_R", r1t_r, kWhole, larger(target), rt, higher(right)),
      operation("MATRopR1_R2", r1_r2, kProduct, target, r, higher(right)),
      operation("MATRopR1_R2t", r1_r2t, kProduct, target, r, right_t),
      operation("MATRopR1_S_R2t", r1_s_r2t, kProduct, target, r, s, right_t),
      operation("MATRopR1_R2_R3t", r1_r2_r3t, kProduct, target, dense(kRows, kInner), dense(kInner, kTerms), right_t),
  };
}

inline std::vector<Product> all_products() {
  std::vector<Product> all = kernels();
  for (const std::vector<Product>& more : {diagonal_kernels(), operators()}) {
    all.insert(all.end(), more.begin(), more.end());
  }
  return all;
}

// Shapes: every combination of these extents. An extent that a product does not have counts once.
struct Space {
  std::vector<int> rows, columns, terms, inner = {1};
};

enum class Placement { kBeforeGuard, kAfterGuard };

// Whether each shape sees every operation code, or the codes take turns from shape to shape.
enum class Codes { kEach, kInTurn };

class Comparison {
public:
  Comparison(const Product& product, Space space, Placement placement, Codes codes)
      : product_(product), space_(std::move(space)), placement_(placement), codes_(codes), sets_(kernel_sets::all()) {
    const auto single = [&](Extent extent, std::vector<int>& values) {
      if (!product_.has(extent)) {
        values = {1};
      }
      largest_[extent] = *std::max_element(values.begin(), values.end());
    };
    single(kRows, space_.rows);
    single(kColumns, space_.columns);
    single(kTerms, space_.terms);
    single(kInner, space_.inner);
    largest_[kSpare] = kMostSpare;
    for (const Form& form : product_.operands) {
      buffers_.push_back(std::make_unique<GuardedBuffer>(form.size(largest_)));
    }
    target_ = std::make_unique<GuardedBuffer>(product_.target.size(largest_) + kFence);
  }

  void run() {
    for (int terms : space_.terms) {
      for (int inner : space_.inner) {
        prepare(terms, inner);
        for (int rows : space_.rows) {
          for (int columns : space_.columns) {
            compare_codes({rows, columns, terms, inner, 0});
            if (testing::Test::HasFatalFailure()) {
              return;
            }
          }
        }
      }
    }
  }

private:
  static constexpr int kMostSpare = 3;
  static constexpr std::size_t kFence = 8;  // elements on the target's open side that must stay
  static constexpr std::uint64_t kFencePattern = 0x7ffcdead5eed0003u;

  // Elements of every kind meet in every shape: rows and columns of the product differ in kind. A factor of which
  // each element takes part in all sums is of one kind, and without infinities, lest there be nothing but NaN. Few
  // lines are so small that their products are subnormal, since processors take a hundred times longer over these.
  static nasty::Kind kind_of(const Form& form, int operand, int i, int j, int terms) {
    using nasty::Kind;
    constexpr Kind kFree[] = {Kind::kUnit, Kind::kSparse, Kind::kWide, Kind::kUnit,
                              Kind::kWide, Kind::kHuge,   Kind::kUnit, Kind::kSpecial};
    constexpr Kind kFixed[] = {Kind::kUnit, Kind::kWide, Kind::kSparse, Kind::kUnit};
    if (!form.free()) {
      return terms % 19 == 7 ? Kind::kTiny : kFixed[(terms + operand) % 4];
    }
    const int line = form.layout == Layout::kPacked ? std::max(i, j) : form.rows < kTerms ? i : j;
    return line == terms * 7 % 23 ? Kind::kTiny : kFree[(line * (operand == 0 ? 1 : 3) + terms + operand) % 8];
  }

  std::vector<double> filled(const Form& form, int operand, const Shape& shape, nasty::Random& random) const {
    std::vector<double> values;
    values.reserve(form.size(shape));
    const int terms = shape[kTerms];
    const int rows = form.row_count(shape), columns = form.column_count(shape);
    const auto add = [&](int i, int j) { values.push_back(nasty::value(kind_of(form, operand, i, j, terms), random)); };
    if (form.layout == Layout::kDense) {
      for (int j = 0; j < columns; ++j) {
        for (int i = 0; i < rows; ++i) {
          add(i, j);
        }
      }
    } else {
      for (int i = 0; values.size() < form.size(shape); ++i) {
        for (int j = form.layout == Layout::kPacked ? 0 : i; j <= i; ++j) {
          add(i, j);
        }
      }
    }
    return values;
  }

  // The part of `from` that a smaller shape has, at `to`, which lies as `to_rows` rows.
  static void copy_leading(const Form& form, const double* from, const Shape& large, const Shape& small, double* to,
                           int to_rows) {
    if (form.layout != Layout::kDense) {
      std::memcpy(to, from, form.size(small) * sizeof(double));
      return;
    }
    const auto rows = static_cast<std::size_t>(form.row_count(small));
    for (int j = 0; j < form.column_count(small); ++j) {
      std::memcpy(to + static_cast<std::ptrdiff_t>(j) * to_rows,
                  from + static_cast<std::ptrdiff_t>(j) * form.row_count(large), rows * sizeof(double));
    }
  }

  void prepare(int terms, int inner) {
    most_ = largest_;
    most_[kTerms] = terms;
    most_[kInner] = inner;
    nasty::Random random(static_cast<std::uint64_t>(terms * 1000 + inner));
    masters_.clear();
    for (std::size_t k = 0; k < product_.operands.size(); ++k) {
      masters_.push_back(filled(product_.operands[k], static_cast<int>(k), most_, random));
    }
    before_ = filled(product_.target, 5, most_, random);
    results_.clear();
  }

  // The reference's result of the largest shape with these terms. Its target has no spare rows or columns.
  const std::vector<double>& result(char op) {
    std::vector<double>& result = results_[op];
    if (result.empty()) {
      Shape bare = most_;
      bare[kSpare] = 0;
      result.resize(product_.target.size(bare));
      copy_leading(product_.target, before_.data(), most_, bare, result.data(), product_.target.row_count(bare));
      Operands in = {};
      for (std::size_t k = 0; k < masters_.size(); ++k) {
        in[k] = masters_[k].data();
      }
      product_.reference(in, result.data(), most_, op);
    }
    return result;
  }

  void compare_codes(Shape shape) {
    const bool spare = product_.target.higher || std::any_of(product_.operands.begin(), product_.operands.end(),
                                                             [](const Form& f) { return f.higher; });
    const bool in_turn = codes_ == Codes::kInTurn;
    const int codes = static_cast<int>(product_.codes.size());
    for (int turn = 0; turn < (in_turn ? 1 : codes); ++turn) {
      const int draw = product_cases::scatter(counter_++, 16 * codes);
      shape[kSpare] = spare && draw / codes % 4 == 0 ? 1 + counter_ % kMostSpare : 0;
      plain_too_ = draw / codes < 4 || sets_.size() == 1;
      compare(shape, product_.codes[static_cast<std::size_t>(in_turn ? draw % codes : turn)]);
      if (testing::Test::HasFatalFailure()) {
        return;
      }
    }
  }

  double* place(GuardedBuffer& buffer, std::size_t count) const {
    return placement_ == Placement::kBeforeGuard ? buffer.ending(count) : buffer.beginning();
  }

  void compare(const Shape& shape, char op) {
    Operands in = {};
    for (std::size_t k = 0; k < masters_.size(); ++k) {
      const Form& form = product_.operands[k];
      in[k] = place(*buffers_[k], form.size(shape));
      copy_leading(form, masters_[k].data(), most_, shape, in[k], form.row_count(shape));
    }
    const Form& form = product_.target;
    const std::size_t size = form.size(shape);
    const int rows = form.row_count(shape);
    start_.resize(size);
    copy_leading(form, before_.data(), most_, shape, start_.data(), rows);
    expect(shape, op);
    double* const target = place(*target_, size);
    double* const fence = placement_ == Placement::kBeforeGuard ? target - kFence : target + size;
    for (kernel_sets::InstructionSet set : sets_) {
      // The plain loops are the slowest and have no tiles that a shape could miss: every fourth shape does for them.
      if (set == kernel_sets::InstructionSet::kPlain && !plain_too_) {
        continue;
      }
      alidade::kernels::select(set);
      std::fill_n(fence, kFence, bits::from(kFencePattern));
      std::copy(start_.begin(), start_.end(), target);
      product_.tested(in, target, shape, op);
      const bool equal = std::memcmp(target, expected_.data(), size * sizeof(double)) == 0 ||
                         bits::equal_arrays(target, expected_.data(), size);
      const bool fenced = std::all_of(fence, fence + kFence, [](double x) { return bits::of(x) == kFencePattern; });
      if (!equal || !fenced) {
        FAIL() << describe(shape, op, set) << (fenced ? "" : ": wrote outside the target\n")
               << bits::equal_arrays(target, expected_.data(), size).message();
      }
    }
  }

  // What the target must hold: the product where it reaches, around it what was there, or zeros.
  void expect(const Shape& shape, char op) {
    expected_ = start_;
    if (shape[kSpare] > 0 && product_.clears_spare && (op == '=' || op == '|')) {
      std::fill(expected_.begin(), expected_.end(), 0.0);
    }
    const std::vector<double>& product = result(op);
    Shape small = shape, large = most_;
    small[kSpare] = large[kSpare] = 0;
    copy_leading(product_.target, product.data(), large, small, expected_.data(), product_.target.row_count(shape));
  }

  std::string describe(const Shape& shape, char op, kernel_sets::InstructionSet set) const {
    std::ostringstream out;
    out << product_.name << " on " << kernel_sets::name(set) << ", op "
        << static_cast<int>(static_cast<unsigned char>(op)) << ", rows " << shape[kRows] << ", columns "
        << shape[kColumns] << ", terms " << shape[kTerms] << ", inner " << shape[kInner] << ", spare " << shape[kSpare]
        << '\n';
    return out.str();
  }

  const Product& product_;
  Space space_;
  Placement placement_;
  Codes codes_;
  std::vector<kernel_sets::InstructionSet> sets_;
  kernel_sets::Restore restore_;
  Shape largest_ = {};
  Shape most_ = {};
  std::vector<std::unique_ptr<GuardedBuffer>> buffers_;
  std::unique_ptr<GuardedBuffer> target_;
  std::vector<std::vector<double>> masters_;
  std::vector<double> before_, start_, expected_;
  std::map<char, std::vector<double>> results_;
  int counter_ = 0;
  bool plain_too_ = true;
};

inline void compare(const Product& product, const Space& space, Placement placement, Codes codes = Codes::kInTurn) {
  Comparison(product, space, placement, codes).run();
}

}  // namespace product_shapes

#endif
