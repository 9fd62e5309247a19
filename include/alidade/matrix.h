#ifndef ALIDADE_MATRIX_H
#define ALIDADE_MATRIX_H

/// @file
/// Packed symmetric and rectangular matrices, product kernels, the operator family, the inversion of normal
/// matrices, and scalar helpers.

#include <alidade/export.h>

class covar;
class matr3_3;
class TMatrix;

class ALIDADE_API TSMatrix {
public:
  TSMatrix(int n, int noClear);
  TSMatrix(double* p, int n);
  TSMatrix(TSMatrix& src);
  ~TSMatrix();
  TSMatrix& operator=(const TSMatrix& o);
  TSMatrix& operator=(int v);

  double operator[](int k) const { return data_[k]; }
  double& operator[](int k) { return data_[k]; }
  operator double*() { return data_; }
  operator double const*() const { return data_; }

  static int LinearIndex(int i, int j);
  int GetDimension() const;
  int GetDim1() const { return dim1_; }
  int GetInitDim1() const { return init_dim1_; }
  void SetDim1(int d);
  void ResetDim1();
  TSMatrix& operator*=(double f);

  void BlockOper(int i0, int j0, int n1, int n2, char op, double* buf);
  void BlockOper(int i0, int j0, char op, TMatrix& M);
  void BlockOper(int i0, int j0, char op, matr3_3& M);
  void BlockOper(int i0, int n, char op, double* buf);
  void BlockOper(int i0, char op, TSMatrix& T);
  void BlockOper(int i0, char op, covar& V);

  void A_This_At(double* A, TSMatrix& R);
  void MatrProduct(double* B, char op, double* P);
  void MatrProduct(TMatrix& B, char op, TMatrix& P);

private:
  bool owner_;
  int dim1_;
  int init_dim1_;
  double* data_;
};

class ALIDADE_API TMatrix {
public:
  TMatrix(int n1, int n2, int noClear);
  TMatrix(double* p, int n1, int n2);
  TMatrix(TMatrix& src);
  ~TMatrix();
  TMatrix& operator=(const TMatrix& o);
  TMatrix& operator=(int v);

  double operator[](int k) const { return data_[k]; }
  double& operator[](int k) { return data_[k]; }
  operator double*() { return data_; }
  operator double const*() const { return data_; }

  int Index(int i, int j) const { return i + n1_ * j; }
  int GetN1() const { return n1_; }
  int GetN2() const { return n2_; }
  int GetDimension() const;
  void SetDimension(int n1, int n2);
  TMatrix& operator*=(double f);

  void SubMatrix(int i0, int j0, int n1, int n2, char op, double* buf);
  void SubMatrix(int i0, int j0, char op, TMatrix& M);
  void SubMatrix(int i0, int j0, char op, matr3_3& M);

private:
  bool owner_;
  int capacity_;
  int n1_;
  int n2_;
  double* data_;
};

ALIDADE_API void MatrixProduct(const double* a, const double* b, double* c, int n, int m, int k);
ALIDADE_API void MAtB(const double* a, const double* b, double* c, int n, int m, int k);
ALIDADE_API void SMatrProduct(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k);
ALIDADE_API void SMatrProductAQAt(const double* a, const double* q, double* c, int n, int m, char op);
ALIDADE_API void MRAtQL(double* r, char op, const double* a, const double* q, const double* l, int n, int m);
ALIDADE_API void SMatrAndBlockOper(double* s, int i0, int j0, int n1, int n2, char op, double* buf);
ALIDADE_API void SMatrAndSBlockOper(double* s, int k0, int nk, char op, double* buf);
ALIDADE_API void MatrAndBlockOper(int ld, double* m, int i0, int j0, int n1, int n2, char op, double* buf);
ALIDADE_API int LOC1(int i, int j, int n, int m, int ms);

ALIDADE_API void SMATRopRt_S_R(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S);
ALIDADE_API void SMATRopRt_R(TSMatrix& T, char op, const TMatrix& R);
ALIDADE_API void SMATRopABti(TSMatrix& T, char op, const TMatrix& A, const TMatrix& B);
ALIDADE_API void SMATRopS1_S2(TSMatrix& T, char op, const TSMatrix& S1, const TSMatrix& S2);
ALIDADE_API void SMATRopR_S_Rt(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S);
ALIDADE_API void MATRopS_R(TMatrix& T, char op, const TSMatrix& S, const TMatrix& R);
ALIDADE_API void MATRopR_S(TMatrix& T, char op, const TMatrix& R, const TSMatrix& S);
ALIDADE_API void MATRopR1t_R(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);
ALIDADE_API void MATRopR1_R2(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);
ALIDADE_API void MATRopR1_R2t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);
ALIDADE_API void MATRopR1_S_R2t(TMatrix& T, char op, const TMatrix& R1, const TSMatrix& S, const TMatrix& R2);
ALIDADE_API void MATRopR1_R2_R3t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2, const TMatrix& R3);

ALIDADE_API int RareInversion(TSMatrix& N, int* progress, int span);
ALIDADE_API int PseudoInversion(TSMatrix& N, int d);

ALIDADE_API int min1(int n, int a1, ...);
ALIDADE_API int max1(int n, int a1, ...);
ALIDADE_API double amin1(int n, double a1, ...);
ALIDADE_API double amax1(int n, double a1, ...);
ALIDADE_API double power(double x, int n);
ALIDADE_API int power(int a, int n);
ALIDADE_API int sign(int a, int b);
ALIDADE_API double sign(double a, double b);
ALIDADE_API int ishc(long& v, int& s);
ALIDADE_API int ishc(short& v, int& s);
ALIDADE_API int ishc(char& v, int& s);
ALIDADE_API float nearest(float x, float s);
ALIDADE_API double nearest(double x, double s);

#endif
