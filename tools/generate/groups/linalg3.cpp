#include "reference/linalg3.h"

#include <cstring>

#include "generate/requests.h"

namespace generate {
namespace {

using golden::Arguments;
using golden::Tokens;

template <int N>
struct Elements {
  double v[N];
  Elements() = default;
  explicit Elements(Arguments& in) { in.numbers(v, N); }
};

using Triad = Elements<3>;
using Covariance = Elements<6>;
using Matrix = Elements<9>;

template <int N>
void write(Tokens& out, const Elements<N>& e) {
  out.numbers(e.v, N);
}

template <int N>
void add(Arguments& in, Tokens& out) {
  Elements<N> a(in);
  const Elements<N> b(in);
  for (int k = 0; k < N; ++k) {
    a.v[k] = a.v[k] + b.v[k];
  }
  write(out, a);
}

template <int N>
void subtract(Arguments& in, Tokens& out) {
  Elements<N> a(in);
  const Elements<N> b(in);
  for (int k = 0; k < N; ++k) {
    a.v[k] = a.v[k] - b.v[k];
  }
  write(out, a);
}

template <int N>
void multiply(Arguments& in, Tokens& out) {
  Elements<N> a(in);
  reference::multiply_all(a.v, N, in.number());
  write(out, a);
}

template <int N>
void divide(Arguments& in, Tokens& out) {
  Elements<N> a(in);
  reference::divide_all(a.v, N, in.number());
  write(out, a);
}

// Assigning 0 clears; what another integer does is said by the caller.
template <int N, bool any_clears>
void assign_integer(Arguments& in, Tokens& out) {
  Elements<N> a(in);
  if (in.integer() == 0 || any_clears) {
    std::memset(a.v, 0, sizeof a.v);
  }
  write(out, a);
}

// Position in the packed triangle, from the table that defines it.
int packed_position(int i, int j) {
  constexpr int kPosition[3][3] = {{0, 1, 3}, {1, 2, 4}, {3, 4, 5}};
  return kPosition[i][j];
}

// A covariance as it comes out of an adjustment: standard deviations of millimetres to metres, correlated.
Tokens covariance(Requests& r) {
  const double s1 = r.uniform(0.001, 2.0);
  const double s2 = r.uniform(0.001, 2.0);
  const double s3 = r.uniform(0.001, 3.0);
  const double r12 = r.uniform(-0.6, 0.6);
  const double r13 = r.uniform(-0.6, 0.6);
  const double r23 = r.uniform(-0.6, 0.6);
  return Tokens()
      .number(s1 * s1)
      .number(r12 * s1 * s2)
      .number(s2 * s2)
      .number(r13 * s1 * s3)
      .number(r23 * s2 * s3)
      .number(s3 * s3);
}

// Third axis decoupled: the block case of the eigen analysis.
Tokens block_covariance(Requests& r) {
  const double b = r.below(4) == 0 ? 0.0 : r.fraction(-2.0, 2.0);
  return Tokens()
      .number(r.fraction(0.0, 4.0))
      .number(b)
      .number(r.fraction(0.0, 4.0))
      .number(0.0)
      .number(-0.0)
      .number(r.fraction(0.0, 4.0));
}

// Small whole elements: equal and zero eigenvalues, zero products, singular matrices.
Tokens whole(Requests& r, int n) {
  Tokens t;
  for (int k = 0; k < n; ++k) {
    t.number(r.between(-2, 2));
  }
  return t;
}

}  // namespace

Source triads() {
  Source s = {{"triads",
               "three-component vectors and their undefined marker",
               {
                   {"triad(int)",
                    [](Arguments& in, Tokens& out) {
                      in.integer();
                      out.number(0.0).number(0.0).number(0.0);
                    }},
                   {"triad(Point3)", [](Arguments& in, Tokens& out) { write(out, Triad(in)); }},
                   {"triad=int", assign_integer<3, false>},
                   {"triad::sqrt",
                    [](Arguments& in, Tokens& out) {
                      Triad t(in);
                      reference::triad_sqrt(t.v);
                      write(out, t);
                    }},
                   {"triad::VectorProduct",
                    [](Arguments& in, Tokens& out) {
                      const Triad a(in);
                      const Triad b(in);
                      Triad product;
                      reference::vector_product(a.v, b.v, product.v);
                      write(out, product);
                    }},
                   {"DefTriad()",
                    [](Arguments&, Tokens& out) {
                      constexpr double kMarker = 1.7976931348623157e308;
                      out.number(kMarker).number(kMarker).number(kMarker);
                    }},
                   {"DefTriad::IsUndef",
                    [](Arguments& in, Tokens& out) {
                      const Triad t(in);
                      const bool undefined = reference::triad_is_undefined(t.v);
                      const bool partly = reference::triad_is_partly_undefined(t.v);
                      out.integer(undefined).integer(partly).integer(undefined).integer(partly);
                    }},
               }},
              Requests(401)};
  Requests& r = s.requests;
  r.add('A', "DefTriad()", {});
  for (const int v : {0, 1, -1, 5, 2147483647}) {
    r.add('A', "triad(int)", Tokens().integer(v));
    for (int i = 0; i < 6; ++i) {
      r.add('A', "triad=int", r.numbers(r.kind(), 3).integer(v));
    }
  }
  r.add_numbers('A', "triad(Point3)", 3, 30);
  r.add_numbers('A', "triad::sqrt", 3, 200);
  r.add_numbers('A', "triad::VectorProduct", 6, 300);
  const double kComponents[] = {1.7976931348623157e308, -1.7976931348623157e308, 0x1.ffffffffffffep+1023, 1.0};
  for (const double x : kComponents) {
    for (const double y : kComponents) {
      for (const double z : kComponents) {
        r.add('A', "DefTriad::IsUndef", Tokens().number(x).number(y).number(z));
      }
    }
  }
  r.add_numbers('A', "DefTriad::IsUndef", 3, 30);
  return s;
}

Source covariances() {
  Source s = {{"covariances",
               "packed 3x3 covariances",
               {
                   {"covar::LinearIndex",
                    [](Arguments& in, Tokens& out) {
                      const int i = in.integer();
                      out.integer(packed_position(i, in.integer()));
                    }},
                   {"covar(triad)",
                    [](Arguments& in, Tokens& out) {
                      const Triad deviations(in);
                      Covariance v;
                      reference::covar_from_deviations(deviations.v, v.v);
                      write(out, v);
                    }},
                   {"covar(matr3_3)",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      Covariance v;
                      reference::covar_from_matrix(m.v, v.v);
                      write(out, v);
                    }},
                   {"covar=int", assign_integer<6, false>},
                   {"covar+=covar", add<6>},
                   {"covar-=covar", subtract<6>},
                   {"covar*=d", multiply<6>},
                   {"covar/=d", divide<6>},
                   {"covar+=matr3_3",
                    [](Arguments& in, Tokens& out) {
                      Covariance v(in);
                      const Matrix m(in);
                      reference::covar_plus_matrix(v.v, m.v);
                      write(out, v);
                    }},
                   {"covar-=matr3_3",
                    [](Arguments& in, Tokens& out) {
                      Covariance v(in);
                      const Matrix m(in);
                      reference::covar_minus_matrix(v.v, m.v);
                      write(out, v);
                    }},
                   {"covar==covar",
                    [](Arguments& in, Tokens& out) {
                      const Covariance a(in);
                      const Covariance b(in);
                      const bool equal = std::memcmp(a.v, b.v, sizeof a.v) == 0;
                      out.integer(equal).integer(!equal);
                    }},
                   {"covar*triad",
                    [](Arguments& in, Tokens& out) {
                      const Covariance v(in);
                      const Triad x(in);
                      Triad y;
                      reference::covar_times_vector(v.v, x.v, y.v);
                      write(out, y);
                    }},
               }},
              Requests(402)};
  Requests& r = s.requests;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      r.add('A', "covar::LinearIndex", Tokens().integer(i).integer(j));
    }
  }
  for (const int v : {0, 1, -7}) {
    for (int i = 0; i < 6; ++i) {
      r.add('A', "covar=int", r.numbers(r.kind(), 6).integer(v));
    }
  }
  r.add_numbers('A', "covar(triad)", 3, 80);
  r.add_numbers('A', "covar(matr3_3)", 9, 100);
  r.add_numbers('A', "covar+=covar", 12, 70);
  r.add_numbers('A', "covar-=covar", 12, 70);
  r.add_numbers('A', "covar*=d", 7, 90);
  r.add_numbers('A', "covar/=d", 7, 120);
  r.add_numbers('A', "covar+=matr3_3", 15, 100);
  r.add_numbers('A', "covar-=matr3_3", 15, 100);
  r.add_numbers('A', "covar*triad", 9, 160);
  for (int i = 0; i < 80; ++i) {
    const Tokens v = covariance(r);
    std::vector<std::string> changed = v.list();
    if (i % 2 == 0) {
      std::string& element = changed[static_cast<std::size_t>(r.below(6))];
      element = element[0] == '-' ? element.substr(1) : "-" + element;
    }
    Tokens both = v;
    for (const std::string& element : changed) {
      both.word(element);
    }
    r.add('A', "covar==covar", both);
    r.add('A', "covar*triad", covariance(r).append(r.numbers("plain", 3)));
  }
  for (const double last : {0.0, -0.0}) {  // bytes are compared: zeros of different sign are different
    const Tokens first_five = whole(r, 5);
    r.add('A', "covar==covar", Tokens(first_five).number(0.0).append(first_five).number(last));
  }
  return s;
}

Source matrices3() {
  Source s = {{"matrices3",
               "3x3 matrices and the propagation of covariances",
               {
                   {"matr3_3::Index",
                    [](Arguments& in, Tokens& out) {
                      const int i = in.integer();
                      out.integer(3 * in.integer() + i);
                    }},
                   {"matr3_3(covar)",
                    [](Arguments& in, Tokens& out) {
                      const Covariance v(in);
                      Matrix m;
                      reference::matrix_from_covar(v.v, m.v);
                      write(out, m);
                    }},
                   {"matr3_3=int", assign_integer<9, true>},
                   {"matr3_3::Column",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      out.numbers(m.v + 3 * in.integer(), 3);
                    }},
                   {"matr3_3+=matr3_3", add<9>},
                   {"matr3_3-=matr3_3", subtract<9>},
                   {"matr3_3*=d", multiply<9>},
                   {"matr3_3/=d", divide<9>},
                   {"matr3_3*matr3_3",
                    [](Arguments& in, Tokens& out) {
                      const Matrix a(in);
                      const Matrix b(in);
                      Matrix c;
                      reference::matrix_times_matrix(a.v, b.v, c.v);
                      write(out, c);
                    }},
                   {"matr3_3*triad",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      const Triad x(in);
                      Triad y;
                      reference::matrix_times_vector(m.v, x.v, y.v);
                      write(out, y);
                    }},
                   {"matr3_3&covar",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      const Covariance v(in);
                      Covariance propagated;
                      reference::propagate(m.v, v.v, propagated.v);
                      write(out, propagated);
                    }},
                   {"matr3_3(A,'t')",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      Matrix transposed;
                      reference::matrix_transposed(m.v, transposed.v);
                      write(out, transposed);
                    }},
                   {"matr3_3(A,255)",
                    [](Arguments& in, Tokens& out) {
                      const Matrix m(in);
                      Matrix inverse;
                      reference::matrix_inverse(m.v, inverse.v);
                      write(out, inverse);
                    }},
               }},
              Requests(403)};
  Requests& r = s.requests;
  for (int i = 0; i < 3; ++i) {
    for (int j = 0; j < 3; ++j) {
      r.add('A', "matr3_3::Index", Tokens().integer(i).integer(j));
    }
    for (int k = 0; k < 8; ++k) {
      r.add('A', "matr3_3::Column", r.numbers(r.kind(), 9).integer(i));
      r.add('A', "matr3_3=int", r.numbers(r.kind(), 9).integer(i - 1));
    }
  }
  r.add_numbers('A', "matr3_3(covar)", 6, 40);
  r.add_numbers('A', "matr3_3+=matr3_3", 18, 50);
  r.add_numbers('A', "matr3_3-=matr3_3", 18, 50);
  r.add_numbers('A', "matr3_3*=d", 10, 60);
  r.add_numbers('A', "matr3_3/=d", 10, 90);
  r.add_numbers('A', "matr3_3*matr3_3", 18, 180);
  r.add_numbers('A', "matr3_3*triad", 12, 160);
  r.add_numbers('A', "matr3_3&covar", 15, 200);
  r.add_numbers('A', "matr3_3(A,'t')", 9, 30);
  r.add_numbers('A', "matr3_3(A,255)", 9, 180);
  for (int i = 0; i < 120; ++i) {
    r.add('A', "matr3_3(A,255)", whole(r, 9));
    r.add('A', "matr3_3&covar", r.numbers("plain", 9).append(covariance(r)));
  }
  return s;
}

Source eigen() {
  Source s = {{"eigen",
               "inversion and principal axes of a 3x3 covariance",
               {
                   {"InvertSMatr3",
                    [](Arguments& in, Tokens& out) {
                      Covariance v(in);
                      out.integer(reference::invert_covar(v.v));
                      write(out, v);
                    }},
                   {"covar::GetEigen",
                    [](Arguments& in, Tokens& out) {
                      const Covariance v(in);
                      Triad u;
                      reference::covar_eigenvector(v.v, in.number(), u.v);
                      write(out, u);
                    }},
                   {"covar::DuserDeigen",
                    [](Arguments& in, Tokens& out) {
                      const Covariance v(in);
                      Matrix axes;
                      reference::covar_axes(v.v, axes.v);
                      write(out, axes);
                    }},
               }},
              Requests(404)};
  Requests& r = s.requests;
  for (int i = 0; i < 250; ++i) {
    r.add('A', "InvertSMatr3", covariance(r));
    r.add('B', "covar::DuserDeigen", covariance(r));
    r.add('B', "covar::GetEigen", covariance(r).number(r.uniform(0.0, 5.0)));
  }
  for (int i = 0; i < 120; ++i) {
    r.add('A', "InvertSMatr3", whole(r, 6));
    r.add('B', "covar::DuserDeigen", whole(r, 6));
    r.add('B', "covar::GetEigen", whole(r, 7));
    r.add('B', "covar::DuserDeigen", block_covariance(r));
    r.add('B', "covar::GetEigen", block_covariance(r).number(r.fraction(0.0, 4.0)));
  }
  r.add_numbers('A', "InvertSMatr3", 6, 160);
  r.add_numbers('B', "covar::DuserDeigen", 6, 160);
  r.add_numbers('B', "covar::GetEigen", 7, 160);
  // On both sides of the determinant test, 1e-60.
  for (const double e : {0x1.9b604aaaca626p-200, 0x1.9b604aaaca625p-200, 0x1.9b604aaaca627p-200,
                         -0x1.9b604aaaca626p-200, -0x1.9b604aaaca625p-200}) {
    r.add('A', "InvertSMatr3", Tokens().number(e).number(0).number(1).number(0).number(0).number(1));
  }
  // Two of the three couplings zero, in turn.
  for (int i = 0; i < 60; ++i) {
    double v[6] = {r.fraction(1.0, 5.0), 0.0, r.fraction(1.0, 5.0), 0.0, 0.0, r.fraction(1.0, 5.0)};
    const int kCoupling[] = {1, 3, 4};
    v[kCoupling[i % 3]] = r.fraction(-1.0, 1.0);
    r.add('B', "covar::DuserDeigen", Tokens().numbers(v, 6));
    r.add('B', "covar::GetEigen", Tokens().numbers(v, 6).number(v[2]));
  }
  return s;
}

}  // namespace generate
