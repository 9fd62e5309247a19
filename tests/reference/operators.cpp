#include "reference/operators.h"

#include "reference/products.h"

namespace reference {
namespace {

bool clears(char op) { return op == '=' || op == '|'; }

void contribute(double& element, char op, double product) {
  if (op == '-' || op == '|') {
    product = -product;
  }
  element = element + product;
}

void clear_active(Packed t, char op) {
  if (clears(op)) {
    for (long i = 0; i < t.order; ++i) {
      for (long j = 0; j <= i; ++j) {
        t.at(i, j) = 0.0;
      }
    }
  }
}

void clear_own(Dense t, char op) {
  if (clears(op)) {
    for (long j = 0; j < t.n2; ++j) {
      for (long i = 0; i < t.n1; ++i) {
        t.at(i, j) = 0.0;
      }
    }
  }
}

// The last four members address the target by the rows of the product, whatever rows it has itself.
Dense as_product(Dense t, int rows, int cols) { return Dense{t.data, rows, cols}; }

}  // namespace

void SMATRopRt_S_R(Packed t, char op, Dense r, Packed s) {
  clear_active(t, op);
  for (long k = 0; k < r.n2; ++k) {
    for (long j = 0; j < r.n1; ++j) {
      double sum = 0.0;
      for (long l = 0; l < r.n1; ++l) {
        sum = sum + s.at(j, l) * r.at(l, k);
      }
      for (long i = 0; i <= k; ++i) {
        contribute(t.at(k, i), op, r.at(j, i) * sum);
      }
    }
  }
}

void SMATRopRt_R(Packed t, char op, Dense r) {
  clear_active(t, op);
  for (long k = 0; k < r.n2; ++k) {
    for (long i = 0; i <= k; ++i) {
      for (long l = 0; l < r.n1; ++l) {
        contribute(t.at(k, i), op, r.at(l, i) * r.at(l, k));
      }
    }
  }
}

void SMATRopABti(Packed t, char op, Dense a, Dense b) {
  clear_active(t, op);
  for (long k = 0; k < a.n1; ++k) {
    for (long i = 0; i <= k; ++i) {
      for (long l = 0; l < a.n2; ++l) {
        contribute(t.at(k, i), op, a.at(k, l) * b.at(i, l) + a.at(i, l) * b.at(k, l));
      }
    }
  }
}

void SMATRopS1_S2(Packed t, char op, Packed s1, Packed s2) {
  clear_active(t, op);
  for (long k = 0; k < s1.order; ++k) {
    for (long i = 0; i <= k; ++i) {
      for (long l = 0; l < s1.order; ++l) {
        contribute(t.at(k, i), op, s1.at(k, l) * s2.at(l, i));
      }
    }
  }
}

void SMATRopR_S_Rt(Packed t, char op, Dense r, Packed s) { congruence_product(r.data, s.data, t.data, r.n1, r.n2, op); }

void MATRopS_R(Dense t, char op, Packed s, Dense r) {
  clear_own(t, op);
  for (long j = 0; j < r.n2; ++j) {
    for (long i = 0; i < r.n1; ++i) {
      for (long l = 0; l < r.n1; ++l) {
        contribute(t.at(i, j), op, s.at(i, l) * r.at(l, j));
      }
    }
  }
}

void MATRopR_S(Dense t, char op, Dense r, Packed s) {
  clear_own(t, op);
  for (long j = 0; j < r.n2; ++j) {
    for (long i = 0; i < r.n1; ++i) {
      for (long l = 0; l < r.n2; ++l) {
        contribute(t.at(i, j), op, r.at(i, l) * s.at(l, j));
      }
    }
  }
}

void MATRopR1t_R(Dense t, char op, Dense r1, Dense r2) {
  clear_own(t, op);
  for (long j = 0; j < r2.n2; ++j) {
    for (long i = 0; i < r1.n2; ++i) {
      for (long l = 0; l < r1.n1; ++l) {
        contribute(t.at(i, j), op, r1.at(l, i) * r2.at(l, j));
      }
    }
  }
}

void MATRopR1_R2(Dense target, char op, Dense r1, Dense r2) {
  const Dense t = as_product(target, r1.n1, r2.n2);
  for (long j = 0; j < r2.n2; ++j) {
    for (long i = 0; i < r1.n1; ++i) {
      if (clears(op)) {
        t.at(i, j) = 0.0;
      }
      for (long l = 0; l < r1.n2; ++l) {
        contribute(t.at(i, j), op, r1.at(i, l) * r2.at(l, j));
      }
    }
  }
}

void MATRopR1_R2t(Dense target, char op, Dense r1, Dense r2) {
  const Dense t = as_product(target, r1.n1, r2.n1);
  for (long i = 0; i < r1.n1; ++i) {
    for (long j = 0; j < r2.n1; ++j) {
      if (clears(op)) {
        t.at(i, j) = 0.0;
      }
      for (long l = 0; l < r2.n2; ++l) {
        contribute(t.at(i, j), op, r1.at(i, l) * r2.at(j, l));
      }
    }
  }
}

void MATRopR1_S_R2t(Dense target, char op, Dense r1, Packed s, Dense r2) {
  const Dense t = as_product(target, r1.n1, r2.n1);
  clear_own(t, op);
  for (long i = 0; i < r1.n1; ++i) {
    for (long j = 0; j < r2.n2; ++j) {
      double sum = 0.0;
      for (long l = 0; l < r2.n2; ++l) {
        sum = sum + r1.at(i, l) * s.at(l, j);
      }
      for (long p = 0; p < r2.n1; ++p) {
        contribute(t.at(i, p), op, r2.at(p, j) * sum);
      }
    }
  }
}

void MATRopR1_R2_R3t(Dense target, char op, Dense r1, Dense r2, Dense r3) {
  const Dense t = as_product(target, r1.n1, r3.n1);
  clear_own(t, op);
  for (long i = 0; i < r1.n1; ++i) {
    for (long j = 0; j < r3.n2; ++j) {
      double sum = 0.0;
      for (long l = 0; l < r2.n1; ++l) {
        sum = sum + r1.at(i, l) * r2.at(l, j);
      }
      for (long p = 0; p < r3.n1; ++p) {
        contribute(t.at(i, p), op, r3.at(p, j) * sum);
      }
    }
  }
}

}  // namespace reference
