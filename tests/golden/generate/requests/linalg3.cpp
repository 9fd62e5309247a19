#include "golden/generate/requests.h"
#include "golden/generate/requests/awkward.h"

namespace generate {
namespace {

using golden::Tokens;

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

Requests triads_requests(std::uint64_t round) {
  Requests r(401, round);
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
  return r;
}

Requests covariances_requests(std::uint64_t round) {
  Requests r(402, round);
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
  return r;
}

Requests matrices3_requests(std::uint64_t round) {
  Requests r(403, round);
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
  return r;
}

Requests eigen_requests(std::uint64_t round) {
  Requests r(404, round);
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
  add_awkward_covariances(r, round);
  return r;
}

}  // namespace generate
