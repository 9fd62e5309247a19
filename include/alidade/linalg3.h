#ifndef ALIDADE_LINALG3_H
#define ALIDADE_LINALG3_H

/// @file
/// Three-dimensional vectors, 3x3 covariances and 3x3 matrices.
///
/// | class | elements | stored |
/// |---|---|---|
/// | `triad` | x, y, z | in that order |
/// | `covar` | the six of a symmetric matrix | lower triangle, row by row: `[v00, v10, v11, v20, v21, v22]` |
/// | `matr3_3` | nine | column by column: `[m00, m10, m20, m01, m11, m21, m02, m12, m22]` |
///
/// All indices count from zero. Units are the caller's: a covariance of metres holds square metres. Nothing is checked:
/// neither indices nor divisors nor whether a covariance is positive definite. All three are plain records, copied by
/// value; their default constructors leave the elements unset.
///
/// **What an integer does**, which differs from class to class on purpose:
///
/// | | constructor from an integer | assignment of 0 | assignment of any other integer |
/// |---|---|---|---|
/// | `triad` | zeros, whatever the integer | zeros | nothing |
/// | `covar` | zeros, whatever the integer | zeros | nothing |
/// | `matr3_3` | zeros, whatever the integer | zeros | zeros |
///
/// **Bits.** Class A (only + - * / sqrt and comparisons, the same bits on every IEEE 754 machine) unless a comment says
/// class B (calls the math library as well). Every sum of products starts at +0.0 and takes its terms in ascending
/// order, so that these members give the bits of the products in matrix.h.

#include <alidade/export.h>
#include <alidade/points.h>

class TSMatrix;
class TMatrix;
class matr3_3;

/// A vector of three doubles: a position, an offset, three standard deviations, an eigenvector.
///
/// Exactly its three components and nothing else: an array of triads is an array of doubles.
class ALIDADE_API triad {
public:
  /// Leaves the components unset.
  triad() {}

  /// The zero vector, whatever the integer is: `triad(5)` is (0, 0, 0). Deliberate, see the table at the head.
  triad(int ignored);

  /// (x, y, z).
  triad(double x, double y, double z);

  /// The three coordinates of a point.
  triad(const TAbstractPoint3<double>& p);

  /// Copies every element.
  triad(const triad& o) = default;
  /// Copies every element.
  triad& operator=(const triad& o) = default;

  /// Sets the components to 0.0 when n is 0; any other n changes nothing (deliberate, see the table at the head).
  triad& operator=(int n);

  /// Component i, 0 to 2.
  double operator[](int i) const { return c_[i]; }
  /// Component i, 0 to 2.
  double& operator[](int i) { return c_[i]; }

  /// Replaces each component by its square root: variances become standard deviations.
  ///
  /// A negative component becomes NaN, the others are still processed; -0.0 stays -0.0.
  void sqrt();

  /// The vector product *this x b.
  ///
  /// (a1 b2 - a2 b1, a2 b0 - a0 b2, a0 b1 - a1 b0), each component one product minus the other in this order. Neither
  /// operand changes. A vector with itself gives (0.0, 0.0, 0.0).
  triad VectorProduct(const triad& b) const;

private:
  double c_[3];
};

/// A triad of which components may be undefined.
///
/// The marker of an undefined component is the largest finite double, 1.7976931348623157e308 (bits 0x7FEFFFFFFFFFFFFF),
/// found with ordinary equality: its negative, an infinity and a NaN are defined values.
class ALIDADE_API DefTriad : public triad {
public:
  /// All three components undefined.
  DefTriad();

  /// Copies every element.
  DefTriad(const DefTriad& o) = default;
  /// Copies every element.
  DefTriad& operator=(const DefTriad& o) = default;

  /// Copies the components; markers among them travel along.
  DefTriad& operator=(const triad& o);

  /// True when all three components of t are undefined.
  static bool IsUndef(const triad& t);
  /// True when at least one component of t is undefined.
  static bool IsPartialUndef(const triad& t);
  /// True when all three components are undefined.
  bool IsUndef() const;
  /// True when at least one component is undefined.
  bool IsPartialUndef() const;
};

/// The covariance matrix of a point or vector: symmetric, 3x3, its six distinct elements.
///
/// Packed lower triangle, row by row; element (i, j) and its mirror (j, i) are one:
///
///         j = 0  1  2
///     i = 0   0              k = p(p + 1)/2 + q,  p = max(i, j), q = min(i, j)
///         1   1  2
///         2   3  4  5        diagonal at 0, 2 and 5
///
/// The same form as a TSMatrix of order three.
class ALIDADE_API covar {
public:
  /// Leaves the elements unset.
  covar() {}

  /// All elements 0.0, whatever the integer is (deliberate, see the table at the head).
  covar(int ignored);

  /// The six elements in packed order; each argument's name is its row and column.
  covar(double v00, double v10, double v11, double v20, double v21, double v22);

  /// From three standard deviations: their squares on the diagonal, 0.0 elsewhere.
  covar(const triad& s);

  /// The diagonal block of S whose first row and column is k: element (r, c) is S(k + r, k + c).
  ///
  /// @param S  not changed; of order k + 3 at least
  /// @param k  first row and column, from zero
  covar(TSMatrix& S, int k);

  /// M + M': element (i, j) is M(i, j) + M(j, i).
  ///
  /// Deliberately not halved: the diagonal is twice M's, and `covar(matr3_3(V))` is 2 V.
  covar(const matr3_3& M);

  /// Copies every element.
  covar(const covar& o) = default;
  /// Copies every element.
  covar& operator=(const covar& o) = default;

  /// Sets all elements to 0.0 when n is 0; any other n changes nothing (deliberate, see the table at the head).
  covar& operator=(int n);

  /// Packed position of element (i, j), by the formula above.
  ///
  /// (1) `LinearIndex(i, j) == LinearIndex(j, i)`.
  static int LinearIndex(int i, int j);

  /// Element at packed position k, 0 to 5.
  double operator[](int k) const { return v_[k]; }
  /// Element at packed position k, 0 to 5.
  double& operator[](int k) { return v_[k]; }
  /// The six elements as an array.
  operator double*() { return v_; }
  /// The six elements as an array.
  operator double const*() const { return v_; }

  /// Element by element.
  covar& operator+=(const covar& o);
  /// Element by element.
  covar& operator-=(const covar& o);
  /// Every element times d.
  covar& operator*=(double d);

  /// Every element times 1/d.
  ///
  /// The reciprocal is formed once, so the last bit may differ from a division. d = 0 gives infinities and NaN.
  covar& operator/=(double d);

  /// *this += M + M'. Not halved, as in the constructor from a matrix; the sum of the two elements is formed first.
  covar& operator+=(const matr3_3& M);
  /// *this -= M + M'. Not halved, as in the constructor from a matrix; the sum of the two elements is formed first.
  covar& operator-=(const matr3_3& M);

  /// True when all 48 bytes are the same: 0.0 differs from -0.0, and a NaN equals the identical NaN.
  bool operator==(const covar& o) const;
  /// True when any of the 48 bytes differs.
  bool operator!=(const covar& o) const;

  /// V v with the full symmetric matrix.
  triad operator*(const triad& v) const;

  /// Unit eigenvector for a known eigenvalue.
  ///
  /// @param eigenvalue  an eigenvalue of this matrix, in its units; for any other number the result is some unit vector
  /// @return a vector of length one, as close as rounding allows; its sign is whatever the formula yields
  ///
  /// With the elements a = V(0,0), b = V(1,0), c = V(1,1), d = V(2,0), e = V(2,1), f = V(2,2) and the eigenvalue l:
  /// s = (l - f) b + e d, p = (l - a) e + b d, q = (l - c) d + b e.
  ///
  /// - p and q both nonzero: (s/p, s/q, 1), normalised; the third component is positive.
  /// - else s zero: (0, 0, 1).
  /// - else: (cos phi, -sin phi, 0) with phi = atan2(2b, a - c) / 2.
  ///
  /// @warning The last two branches are met when the matrix is decoupled, and what they give is then in general no
  /// eigenvector: with d = e = 0 the axis is (cos phi, +sin phi, 0), and where d or e is the only nonzero off-diagonal
  /// element (0, 0, 1) is none. Kept for compatibility. For d = e = 0 take DuserDeigen.
  ///
  /// Method: the adjugate of V - l I has rank one, and its rows are multiples of the eigenvector; s, p and q are the
  /// cofactors off its diagonal. The tests for zero are exact, so near-zero p or q lose accuracy: the relative error of
  /// a component is some (norm V)^2 / (the product of the two gaps to the other eigenvalues times two components)
  /// roundings. Bits: class B in the last branch (atan2, sin, cos), else class A.
  triad GetEigen(double eigenvalue) const;

  /// Principal axes: the columns are unit eigenvectors, by decreasing eigenvalue.
  ///
  /// @return the axes in columns 0, 1, 2. The eigenvalues are not returned; that of a column u is u'Vu.
  ///
  /// @warning The solution of the cubic discards the sign of its constant term. It is right when one axis is large and
  /// two are small: when the middle eigenvalue lies below the mean of the largest and the smallest. With **two large
  /// axes and one small one, and so for about as many random covariances, the columns are not the principal axes** (nor
  /// even perpendicular). Two more cases outside the block case give no axes: d or e the only nonzero off-diagonal
  /// element (see GetEigen), and **two equal or nearly equal eigenvalues**. With a gap of gamma times the trace between
  /// the two small ones, some rounding errors become rounding errors / gamma^2: over random orientations the residual
  /// w - l u below, relative to the trace, exceeds 1e-17/gamma^2 in about half of the cases, k times as much in about
  /// one of k. A gap of 1e-4 of the trace leaves 1e-6 but for one case in a thousand; below 1e-8 any unit vectors may
  /// come, or NaN. All this is kept for compatibility.
  ///
  /// **Verify every set of axes** that does not come from the block case: for each column u form w = V u and l = u'w;
  /// w - l u must vanish against the trace of V. Where it does not, take the horizontal ellipse from the block case, or
  /// use another eigensolver.
  ///
  /// Block case, d = e = 0 (the third axis decoupled; letters as at GetEigen): a rotation by atan2(2b, a - c) / 2 about
  /// the third axis. It is right whatever the sizes. Propagate a covariance to north, east, up and set V(2,0) = V(2,1)
  /// = 0.0: the columns with third component zero are the axes of the horizontal error ellipse. With b = 0 too the
  /// columns are those of the identity, sorted.
  ///
  /// General case: the trigonometric solution of the characteristic cubic (hyperbolic where rounding takes the cosine
  /// beyond one), GetEigen for its first two roots, the vector product for the third axis. In the hyperbolic branch the
  /// constant 10 stands where the inverse hyperbolic cosine has 1, also kept: arguments between 1 and sqrt(10) give
  /// NaN.
  ///
  /// The sort exchanges neighbours while the left is strictly smaller: equal values keep their order, NaN never moves.
  /// In the block case a negative diagonal element or a negative eigenvalue counts as NaN, its square root being
  /// compared. Method: F. Viete's trigonometric solution of the cubic. Bits: class B.
  matr3_3 DuserDeigen() const;

private:
  double v_[6];
};

/// A general 3x3 matrix: a rotation, a Jacobian, a block of a design or normal matrix.
///
/// Column by column, the row index running fastest:
///
///         j = 0  1  2
///     i = 0   0  3  6        k = 3j + i
///         1   1  4  7
///         2   2  5  8
class ALIDADE_API matr3_3 {
public:
  /// Leaves the elements unset.
  matr3_3() {}

  /// All elements 0.0, whatever the integer is.
  matr3_3(int ignored);

  /// The full symmetric matrix: M(i, j) = M(j, i) = V(i, j).
  matr3_3(const covar& V);

  /// The block of S whose top left element is S(r, c), through symmetry where it reaches above the diagonal.
  ///
  /// @param S     not changed; of order r + 3 and c + 3 at least
  /// @param r, c  row and column of the top left element, from zero
  matr3_3(TSMatrix& S, int r, int c);

  /// The block of T whose top left element is T(r, c).
  ///
  /// @param T     not changed; of r + 3 rows and c + 3 columns at least
  /// @param r, c  row and column of the top left element, from zero
  matr3_3(TMatrix& T, int r, int c);

  /// The transpose or the inverse of A.
  ///
  /// | op | result |
  /// |---|---|
  /// | 't' | the transpose: (r, c) = A(c, r) |
  /// | code 255, that is `static_cast<char>(-1)` | the inverse |
  /// | any other | **nothing is written**: the elements are left unset |
  ///
  /// The inverse is the adjugate times 1/det, the reciprocal formed once. Where det is exactly 0.0 the adjugate is left
  /// unscaled and nothing signals it: a caller who may meet a singular matrix tests the determinant. There is no
  /// threshold; InvertSMatr3 has one. The code compares the same where char is signed and where it is not.
  /// Accuracy: with elements up to m, no element of I - A X exceeds 64 * 2^-53 * m^3 / |det|.
  matr3_3(const matr3_3& A, char op);

  /// Copies every element.
  matr3_3(const matr3_3& o) = default;
  /// Copies every element.
  matr3_3& operator=(const matr3_3& o) = default;

  /// Sets all elements to 0.0 whatever the integer is: unlike triad and covar, `M = 5` clears too (deliberate).
  matr3_3& operator=(int ignored);

  /// Position of the element in row i and column j: 3j + i.
  static int Index(int i, int j);

  /// Column j in place: what is written through the pointer is written into the matrix.
  triad* Column(int j);

  /// Element at position k, 0 to 8.
  double operator[](int k) const { return m_[k]; }
  /// Element at position k, 0 to 8.
  double& operator[](int k) { return m_[k]; }
  /// The nine elements as an array.
  operator double*() { return m_; }
  /// The nine elements as an array.
  operator double const*() const { return m_; }
  /// The first element.
  operator double&() { return m_[0]; }

  /// Element by element.
  matr3_3& operator+=(const matr3_3& o);
  /// Element by element.
  matr3_3& operator-=(const matr3_3& o);
  /// Every element times d.
  matr3_3& operator*=(double d);
  /// Every element times 1/d, the reciprocal formed once; d = 0 gives infinities and NaN.
  matr3_3& operator/=(double d);

  /// The product *this B. The result may be assigned to an operand.
  matr3_3 operator*(const matr3_3& B) const;

  /// M v.
  triad operator*(const triad& v) const;

  /// The propagated covariance M V M'.
  ///
  /// The law of propagation: y = M x has the covariance M V M' when x has V. T = M V is formed first, then
  /// (i, j) = sum over l of M(i, l) T(j, l).
  covar operator&(const covar& V) const;

private:
  // Two views of the same nine doubles, so that a column handed out as a triad is a triad.
  union {
    double m_[9];
    triad columns_[3];
  };
};

/// Inverts a covariance in place by cofactors.
///
/// @param V  on entry a covariance; on exit its inverse, or untouched when -1 is returned
///
/// | returned | meaning |
/// |---|---|
/// | 0 | inverted |
/// | -1 | \|det\| < 1e-60, taken as singular: V is unchanged |
/// | -2 | inverted, but det < 0: V is not positive definite |
///
/// Watch the units: 1e-60 is an absolute threshold. Three variances of (1e-10 m)^2 have a determinant of 1e-60 m^6. A
/// positive determinant does not prove that V is positive definite. A NaN gives NaN and 0. det is the first column
/// against its cofactors; all elements are multiplied by 1/det, formed once. Accuracy: with elements up to m, no
/// element of I - V X exceeds 64 * 2^-53 * m^3 / |det|. Bits: class A.
ALIDADE_API int InvertSMatr3(covar& V);

#endif
