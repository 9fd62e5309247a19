#include "golden/functions.h"
#include "subject.h"

namespace golden {

using Index3 = Within<0, 2>;

Group triads() {
  return {"triads",
          "three-component vectors and their undefined marker",
          {
              {"triad(int)", [](int ignored) { return triad(ignored); }},
              {"triad(Point3)", [](TAbstractPoint3<double> p) { return triad(p); }},
              {"triad=int", [](triad t, int v) { return t = v; }},
              {"triad::sqrt", [](triad t) { return t.sqrt(), t; }},
              {"triad::VectorProduct", [](triad a, triad b) { return a.VectorProduct(b); }},
              {"DefTriad()", [] { return static_cast<triad>(DefTriad()); }},
              {"DefTriad::IsUndef",
               [](triad t) {
                 DefTriad d;
                 d = t;
                 return std::tuple{DefTriad::IsUndef(t), DefTriad::IsPartialUndef(t), d.IsUndef(), d.IsPartialUndef()};
               }},
          }};
}

Group covariances() {
  return {"covariances",
          "packed 3x3 covariances",
          {
              {"covar::LinearIndex", [](Index3 i, Index3 j) { return covar::LinearIndex(i, j); }},
              {"covar(triad)", [](triad s) { return covar(s); }},
              {"covar(matr3_3)", [](matr3_3 m) { return covar(m); }},
              {"covar=int", [](covar v, int n) { return v = n; }},
              {"covar+=covar", [](covar v, covar o) { return v += o; }},
              {"covar-=covar", [](covar v, covar o) { return v -= o; }},
              {"covar*=d", [](covar v, double d) { return v *= d; }},
              {"covar/=d", [](covar v, double d) { return v /= d; }},
              {"covar+=matr3_3", [](covar v, matr3_3 m) { return v += m; }},
              {"covar-=matr3_3", [](covar v, matr3_3 m) { return v -= m; }},
              {"covar==covar",
               [](covar a, covar b) {
                 return std::tuple{a == b, a != b};
               }},
              {"covar*triad", [](covar v, triad x) { return v * x; }},
          }};
}

Group matrices3() {
  return {"matrices3",
          "3x3 matrices and the propagation of covariances",
          {
              {"matr3_3::Index", [](Index3 i, Index3 j) { return matr3_3::Index(i, j); }},
              {"matr3_3(covar)", [](covar v) { return matr3_3(v); }},
              {"matr3_3=int", [](matr3_3 m, int v) { return m = v; }},
              {"matr3_3::Column", [](matr3_3 m, Index3 j) { return *m.Column(j); }},
              {"matr3_3+=matr3_3", [](matr3_3 m, matr3_3 o) { return m += o; }},
              {"matr3_3-=matr3_3", [](matr3_3 m, matr3_3 o) { return m -= o; }},
              {"matr3_3*=d", [](matr3_3 m, double d) { return m *= d; }},
              {"matr3_3/=d", [](matr3_3 m, double d) { return m /= d; }},
              {"matr3_3*matr3_3", [](matr3_3 a, matr3_3 b) { return a * b; }},
              {"matr3_3*triad", [](matr3_3 m, triad x) { return m * x; }},
              {"matr3_3&covar", [](matr3_3 m, covar v) { return m & v; }},
              {"matr3_3(A,'t')", [](matr3_3 m) { return matr3_3(m, 't'); }},
              {"matr3_3(A,255)", [](matr3_3 m) { return matr3_3(m, static_cast<char>(255)); }},
          }};
}

Group eigen() {
  return {"eigen",
          "inversion and principal axes of a 3x3 covariance",
          {
              {"InvertSMatr3",
               [](covar v) {
                 const int status = InvertSMatr3(v);
                 return std::tuple{status, v};
               }},
              {"covar::GetEigen", [](covar v, double eigenvalue) { return v.GetEigen(eigenvalue); }},
              {"covar::DuserDeigen", [](covar v) { return v.DuserDeigen(); }},
          }};
}

}  // namespace golden
