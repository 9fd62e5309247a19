#include <alidade/linalg3.h>

#include "verify/groups/groups.h"

namespace verify {
namespace {

using golden::Arguments;
using golden::Tokens;

triad read_triad(Arguments& in) {
  double c[3];
  in.numbers(c, 3);
  return {c[0], c[1], c[2]};
}

covar read_covar(Arguments& in) {
  covar v;
  in.numbers(v, 6);
  return v;
}

matr3_3 read_matrix(Arguments& in) {
  matr3_3 m;
  for (int k = 0; k < 9; ++k) {
    m[k] = in.number();
  }
  return m;
}

void write(Tokens& out, const triad& t) { out.number(t[0]).number(t[1]).number(t[2]); }

void write(Tokens& out, const covar& v) {
  for (int k = 0; k < 6; ++k) {
    out.number(v[k]);
  }
}

void write(Tokens& out, const matr3_3& m) {
  for (int k = 0; k < 9; ++k) {
    out.number(m[k]);
  }
}

}  // namespace

golden::Group triads() {
  return {"triads",
          "three-component vectors and their undefined marker",
          {
              {"triad(int)", [](Arguments& in, Tokens& out) { write(out, triad(in.integer())); }},
              {"triad(Point3)",
               [](Arguments& in, Tokens& out) {
                 double c[3];
                 in.numbers(c, 3);
                 write(out, triad(TAbstractPoint3<double>(c)));
               }},
              {"triad=int",
               [](Arguments& in, Tokens& out) {
                 triad t = read_triad(in);
                 t = in.integer();
                 write(out, t);
               }},
              {"triad::sqrt",
               [](Arguments& in, Tokens& out) {
                 triad t = read_triad(in);
                 t.sqrt();
                 write(out, t);
               }},
              {"triad::VectorProduct",
               [](Arguments& in, Tokens& out) {
                 const triad a = read_triad(in);
                 const triad b = read_triad(in);
                 write(out, a.VectorProduct(b));
               }},
              {"DefTriad()", [](Arguments&, Tokens& out) { write(out, DefTriad()); }},
              {"DefTriad::IsUndef",
               [](Arguments& in, Tokens& out) {
                 const triad t = read_triad(in);
                 DefTriad d;
                 d = t;
                 out.integer(DefTriad::IsUndef(t)).integer(DefTriad::IsPartialUndef(t));
                 out.integer(d.IsUndef()).integer(d.IsPartialUndef());
               }},
          }};
}

golden::Group covariances() {
  return {"covariances",
          "packed 3x3 covariances",
          {
              {"covar::LinearIndex",
               [](Arguments& in, Tokens& out) {
                 const auto [i, j] = in.integers<2>();
                 out.integer(covar::LinearIndex(i, j));
               }},
              {"covar(triad)", [](Arguments& in, Tokens& out) { write(out, covar(read_triad(in))); }},
              {"covar(matr3_3)", [](Arguments& in, Tokens& out) { write(out, covar(read_matrix(in))); }},
              {"covar=int",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 v = in.integer();
                 write(out, v);
               }},
              {"covar+=covar",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v += read_covar(in));
               }},
              {"covar-=covar",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v -= read_covar(in));
               }},
              {"covar*=d",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v *= in.number());
               }},
              {"covar/=d",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v /= in.number());
               }},
              {"covar+=matr3_3",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v += read_matrix(in));
               }},
              {"covar-=matr3_3",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 write(out, v -= read_matrix(in));
               }},
              {"covar==covar",
               [](Arguments& in, Tokens& out) {
                 const covar a = read_covar(in);
                 const covar b = read_covar(in);
                 out.integer(a == b).integer(a != b);
               }},
              {"covar*triad",
               [](Arguments& in, Tokens& out) {
                 const covar v = read_covar(in);
                 write(out, v * read_triad(in));
               }},
          }};
}

golden::Group matrices3() {
  return {"matrices3",
          "3x3 matrices and the propagation of covariances",
          {
              {"matr3_3::Index",
               [](Arguments& in, Tokens& out) {
                 const auto [i, j] = in.integers<2>();
                 out.integer(matr3_3::Index(i, j));
               }},
              {"matr3_3(covar)", [](Arguments& in, Tokens& out) { write(out, matr3_3(read_covar(in))); }},
              {"matr3_3=int",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 m = in.integer();
                 write(out, m);
               }},
              {"matr3_3::Column",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 write(out, *m.Column(in.integer()));
               }},
              {"matr3_3+=matr3_3",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 write(out, m += read_matrix(in));
               }},
              {"matr3_3-=matr3_3",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 write(out, m -= read_matrix(in));
               }},
              {"matr3_3*=d",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 write(out, m *= in.number());
               }},
              {"matr3_3/=d",
               [](Arguments& in, Tokens& out) {
                 matr3_3 m = read_matrix(in);
                 write(out, m /= in.number());
               }},
              {"matr3_3*matr3_3",
               [](Arguments& in, Tokens& out) {
                 const matr3_3 a = read_matrix(in);
                 write(out, a * read_matrix(in));
               }},
              {"matr3_3*triad",
               [](Arguments& in, Tokens& out) {
                 const matr3_3 m = read_matrix(in);
                 write(out, m * read_triad(in));
               }},
              {"matr3_3&covar",
               [](Arguments& in, Tokens& out) {
                 const matr3_3 m = read_matrix(in);
                 write(out, m & read_covar(in));
               }},
              {"matr3_3(A,'t')", [](Arguments& in, Tokens& out) { write(out, matr3_3(read_matrix(in), 't')); }},
              {"matr3_3(A,255)",
               [](Arguments& in, Tokens& out) { write(out, matr3_3(read_matrix(in), static_cast<char>(255))); }},
          }};
}

golden::Group eigen() {
  return {"eigen",
          "inversion and principal axes of a 3x3 covariance",
          {
              {"InvertSMatr3",
               [](Arguments& in, Tokens& out) {
                 covar v = read_covar(in);
                 out.integer(InvertSMatr3(v));
                 write(out, v);
               }},
              {"covar::GetEigen",
               [](Arguments& in, Tokens& out) {
                 const covar v = read_covar(in);
                 write(out, v.GetEigen(in.number()));
               }},
              {"covar::DuserDeigen", [](Arguments& in, Tokens& out) { write(out, read_covar(in).DuserDeigen()); }},
          }};
}

}  // namespace verify
