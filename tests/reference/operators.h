#ifndef ALIDADE_TESTS_REFERENCE_OPERATORS_H
#define ALIDADE_TESTS_REFERENCE_OPERATORS_H

// The operator family element by element, under the exported names. `order` is the active order of a packed target,
// `Dense` a dense matrix with its own number of rows and columns.

namespace reference {

struct Dense {
  double* data;
  int n1;
  int n2;

  double& at(long i, long j) const { return data[i + j * n1]; }
};

struct Packed {
  double* data;
  int order;

  double& at(long i, long j) const { return i >= j ? data[i * (i + 1) / 2 + j] : data[j * (j + 1) / 2 + i]; }
};

void SMATRopRt_S_R(Packed t, char op, Dense r, Packed s);
void SMATRopRt_R(Packed t, char op, Dense r);
void SMATRopABti(Packed t, char op, Dense a, Dense b);
void SMATRopS1_S2(Packed t, char op, Packed s1, Packed s2);
void SMATRopR_S_Rt(Packed t, char op, Dense r, Packed s);
void MATRopS_R(Dense t, char op, Packed s, Dense r);
void MATRopR_S(Dense t, char op, Dense r, Packed s);
void MATRopR1t_R(Dense t, char op, Dense r1, Dense r2);
void MATRopR1_R2(Dense t, char op, Dense r1, Dense r2);
void MATRopR1_R2t(Dense t, char op, Dense r1, Dense r2);
void MATRopR1_S_R2t(Dense t, char op, Dense r1, Packed s, Dense r2);
void MATRopR1_R2_R3t(Dense t, char op, Dense r1, Dense r2, Dense r3);

}  // namespace reference

#endif
