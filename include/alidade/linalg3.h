#ifndef ALIDADE_LINALG3_H
#define ALIDADE_LINALG3_H

/// @file
/// Three-dimensional vectors, 3x3 covariances and 3x3 matrices.

#include <alidade/export.h>
#include <alidade/points.h>

class TSMatrix;
class TMatrix;
class matr3_3;

class ALIDADE_API triad {
public:
  triad() {}
  triad(int);
  triad(double x, double y, double z);
  triad(const TAbstractPoint3<double>& p);
  triad(const triad& o) = default;
  triad& operator=(const triad& o) = default;
  triad& operator=(int n);

  double operator[](int i) const { return c_[i]; }
  double& operator[](int i) { return c_[i]; }

  void sqrt();
  triad VectorProduct(const triad& b) const;

private:
  double c_[3];
};

class ALIDADE_API DefTriad : public triad {
public:
  DefTriad();
  DefTriad(const DefTriad& o) = default;
  DefTriad& operator=(const DefTriad& o) = default;
  DefTriad& operator=(const triad& o);

  static bool IsUndef(const triad& t);
  static bool IsPartialUndef(const triad& t);
  bool IsUndef() const;
  bool IsPartialUndef() const;
};

class ALIDADE_API covar {
public:
  covar() {}
  covar(int);
  covar(double v00, double v10, double v11, double v20, double v21, double v22);
  covar(const triad& s);
  covar(TSMatrix& S, int k);
  covar(const matr3_3& M);
  covar(const covar& o) = default;
  covar& operator=(const covar& o) = default;
  covar& operator=(int n);

  static int LinearIndex(int i, int j);

  double operator[](int k) const { return v_[k]; }
  double& operator[](int k) { return v_[k]; }
  operator double*() { return v_; }
  operator double const*() const { return v_; }

  covar& operator+=(const covar& o);
  covar& operator-=(const covar& o);
  covar& operator*=(double d);
  covar& operator/=(double d);
  covar& operator+=(const matr3_3& M);
  covar& operator-=(const matr3_3& M);
  bool operator==(const covar& o) const;
  bool operator!=(const covar& o) const;
  triad operator*(const triad& v) const;

  triad GetEigen(double eigenvalue) const;
  matr3_3 DuserDeigen() const;

private:
  double v_[6];
};

class ALIDADE_API matr3_3 {
public:
  matr3_3() {}
  matr3_3(int);
  matr3_3(const covar& V);
  matr3_3(TSMatrix& S, int r, int c);
  matr3_3(TMatrix& T, int r, int c);
  matr3_3(const matr3_3& A, char op);
  matr3_3(const matr3_3& o) = default;
  matr3_3& operator=(const matr3_3& o) = default;
  matr3_3& operator=(int);

  static int Index(int i, int j);
  triad* Column(int j);

  double operator[](int k) const { return m_[k]; }
  double& operator[](int k) { return m_[k]; }
  operator double*() { return m_; }
  operator double const*() const { return m_; }
  operator double&() { return m_[0]; }

  matr3_3& operator+=(const matr3_3& o);
  matr3_3& operator-=(const matr3_3& o);
  matr3_3& operator*=(double d);
  matr3_3& operator/=(double d);
  matr3_3 operator*(const matr3_3& B) const;
  triad operator*(const triad& v) const;
  covar operator&(const covar& V) const;

private:
  // Two views of the same nine doubles, so that a column handed out as a triad is a triad.
  union {
    double m_[9];
    triad columns_[3];
  };
};

ALIDADE_API int InvertSMatr3(covar& V);

#endif
