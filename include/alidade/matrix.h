#ifndef ALIDADE_MATRIX_H
#define ALIDADE_MATRIX_H

/// @file
/// Packed symmetric and rectangular matrices, products, the operator family, the inversion of normal matrices, and
/// scalar helpers.
///
/// **Storage.** Every matrix is one array of doubles; all indices count from zero.
///
/// Packed symmetric (`TSMatrix`, `covar`, arguments called packed): the lower triangle row by row, n(n + 1)/2 elements.
/// Element (i, j) and its mirror (j, i) are one; it lies at p(p + 1)/2 + q with p = max(i, j), q = min(i, j):
///
///         j = 0  1  2  3
///     i = 0   0
///         1   1  2
///         2   3  4  5
///         3   6  7  8  9
///
/// A leading triangle of smaller order is the beginning of the array, so a matrix is narrowed without moving anything.
///
/// Dense (`TMatrix`, `matr3_3`, arguments called dense): column by column, the row index running fastest. Element (i,
/// j) of a matrix of N1 rows lies at i + N1 j:
///
///         j = 0  1  2
///     i = 0   0  4  8        N1 = 4
///         1   1  5  9
///         2   2  6 10
///         3   3  7 11
///
/// Diagonal (one storage mode of SMatrProduct): the vector of the diagonal elements.
///
/// **Operation codes.** One character says what becomes of the target. Block transfers read it as follows; products and
/// operators have readings of their own, given with each.
///
/// | code | block transfer: each matrix element M with its buffer element B |
/// |---|---|
/// | '+' | M = M + B |
/// | '-' | M = M - B |
/// | '=' | M = B, copy into the matrix |
/// | '>' | B = M, copy out of the matrix |
/// | '0' | M = 0.0; B is not read and the buffer may be null |
/// | any other | nothing |
///
/// **Sizes.** Offsets are formed in 64 bits: orders up to 65,535 in packed and whatever fits in memory in dense
/// storage. What returns an int (positions, numbers of elements) is right up to 2^31 - 1. Nothing is checked against a
/// size.
///
/// **Overlap.** Unless a comment allows it, arguments must not overlap.
///
/// **Memory.** No function takes more than 16 KB of stack. Large products and operators copy blocks of their operands
/// into up to 97 KB of the heap, and give it back; where the heap has nothing left they do with smaller blocks on the
/// stack. They never throw.
///
/// **Exceptions.** A product into a packed target may raise floating-point exceptions that belong to elements above the
/// diagonal, which are not stored. A host that traps exceptions masks them around such a call. No result changes.
///
/// **Bits.** Class A (only + - * / sqrt and comparisons, the same bits on every IEEE 754 machine) unless a comment says
/// otherwise.

#include <alidade/export.h>

class covar;
class matr3_3;
class TMatrix;

/// A symmetric matrix of run-time order, packed: normal matrices, covariances of many parameters.
///
/// Owns its array when built with an order, views the caller's when built over a buffer. The order in use, Dim1, moves
/// between 0 and the order at construction, InitDim1; the elements stay where they are.
class ALIDADE_API TSMatrix {
public:
  /// A matrix of order n with an array of its own.
  ///
  /// @param n        order, 0 to 65,535; room for one element is allocated at least
  /// @param noClear  0: all elements 0.0; any other: left unset
  ///
  /// Throws what the platform's new throws when the memory is not there.
  TSMatrix(int n, int noClear);

  /// A view over the caller's buffer of n(n + 1)/2 elements: nothing is allocated, copied or ever released.
  TSMatrix(double* p, int n);

  /// A deep copy: an array of its own with all of the source's InitDim1 triangle, not only the part in use.
  ///
  /// A view is copied into an owner. The source is not changed.
  TSMatrix(TSMatrix& src);

  /// Releases the array if this object owns it.
  ~TSMatrix();

  /// **Shallow**: takes over the four fields as they stand, the ownership flag among them.
  ///
  /// Afterwards both objects refer to one array, and what the target had before is not released. Two owners of one
  /// array release it twice. Deliberate, for use between views; to copy elements use the copy constructor or BlockOper.
  TSMatrix& operator=(const TSMatrix& o);

  /// Sets the elements in use to 0.0 when v is 0; any other v changes nothing (deliberate: zero is the only fill
  /// value).
  TSMatrix& operator=(int v);

  /// Packed element k.
  double operator[](int k) const { return data_[k]; }
  /// Packed element k.
  double& operator[](int k) { return data_[k]; }
  /// The packed elements.
  operator double*() { return data_; }
  /// The packed elements.
  operator double const*() const { return data_; }

  /// Packed position of element (i, j), by the formula at the head.
  ///
  /// (1) `LinearIndex(i, j) == LinearIndex(j, i)`.
  static int LinearIndex(int i, int j);

  /// Number of packed elements in use, Dim1 (Dim1 + 1)/2. **Not the order**, which is GetDim1.
  int GetDimension() const;
  /// The order in use.
  int GetDim1() const { return dim1_; }
  /// The order at construction.
  int GetInitDim1() const { return init_dim1_; }
  /// Sets the order in use; more than InitDim1 is ignored without notice.
  void SetDim1(int d);
  /// Sets the order in use back to InitDim1. What was outside meanwhile is as it was.
  void ResetDim1();

  /// Every element in use times f. Bits: class A.
  TSMatrix& operator*=(double f);

  /// Block transfer between rows i0 ... i0 + n1 - 1, columns j0 ... j0 + n2 - 1 and a dense buffer of n1 by n2.
  ///
  /// @param i0, j0  row and column of the block's first element
  /// @param n1, n2  rows and columns of the block
  /// @param op      code of a block transfer, see the head
  /// @param buf     element (m, k) belongs to (i0 + m, j0 + k)
  ///
  /// Column by column. Where the block lies across the diagonal, an element and its mirror are one and are reached
  /// twice: '+' adds both buffer elements, '=' leaves the later one, '>' fills both. Nothing is done for n1 < 1 or n2
  /// < 1.
  void BlockOper(int i0, int j0, int n1, int n2, char op, double* buf);
  /// The same with M as the buffer: n1, n2 are M's rows and columns.
  void BlockOper(int i0, int j0, char op, TMatrix& M);
  /// The same with M as the buffer, n1 = n2 = 3.
  void BlockOper(int i0, int j0, char op, matr3_3& M);

  /// Block transfer between the diagonal block of order n from (i0, i0) on and a packed buffer of order n.
  ///
  /// Every element is reached once. Nothing is done for n < 1.
  void BlockOper(int i0, int n, char op, double* buf);
  /// The same with T as the buffer, n = T's order in use.
  void BlockOper(int i0, char op, TSMatrix& T);
  /// The same with V as the buffer, n = 3.
  void BlockOper(int i0, char op, covar& V);

  /// R = A S A' with S this matrix.
  ///
  /// @param A  dense, R's order in use by this matrix's order in use
  /// @param R  the target, overwritten; not this matrix
  ///
  /// SMatrProductAQAt with the code NUL, which that function takes for assignment. Bits: class A.
  void A_This_At(double* A, TSMatrix& R);

  /// P = S B for one column B of Dim1 elements.
  ///
  /// @param B   Dim1 elements
  /// @param op  accepted and **not used**: P is overwritten whatever it is (deliberate)
  /// @param P   receives Dim1 elements; must not overlap B
  ///
  /// SMatrProduct with S packed and B dense. Bits: class A.
  void MatrProduct(double* B, char op, double* P);
  /// The same for each column of B, which has Dim1 rows; P's array receives Dim1 rows by B's columns.
  void MatrProduct(TMatrix& B, char op, TMatrix& P);

private:
  bool owner_;
  int dim1_;
  int init_dim1_;
  double* data_;
};

/// A rectangular matrix of run-time size, dense: design matrices, right-hand sides, blocks.
///
/// Owns its array when built with sizes, views the caller's when built over a buffer.
class ALIDADE_API TMatrix {
public:
  /// A matrix of n1 rows and n2 columns with an array of its own.
  ///
  /// @param n1, n2   0 or more; room for one element is allocated at least
  /// @param noClear  0: all elements 0.0; any other: left unset
  ///
  /// Throws what the platform's new throws when the memory is not there.
  TMatrix(int n1, int n2, int noClear);

  /// A view over the caller's buffer of n1 n2 elements: nothing is allocated, copied or ever released.
  TMatrix(double* p, int n1, int n2);

  /// A deep copy: an array of its own for the N1 N2 elements in use, not the source's whole capacity.
  ///
  /// A view is copied into an owner. The source is not changed.
  TMatrix(TMatrix& src);

  /// Releases the array if this object owns it.
  ~TMatrix();

  /// **Shallow**: takes over the five fields as they stand, the ownership flag among them.
  ///
  /// Afterwards both objects refer to one array, and what the target had before is not released. Two owners of one
  /// array release it twice. Deliberate, for use between views; to copy elements use the copy constructor or SubMatrix.
  TMatrix& operator=(const TMatrix& o);

  /// Sets the elements in use to 0.0 when v is 0; any other v changes nothing (deliberate: zero is the only fill
  /// value).
  TMatrix& operator=(int v);

  /// Element k of the array.
  double operator[](int k) const { return data_[k]; }
  /// Element k of the array.
  double& operator[](int k) { return data_[k]; }
  /// The elements, column by column.
  operator double*() { return data_; }
  /// The elements, column by column.
  operator double const*() const { return data_; }

  /// Position of the element in row i and column j: i + N1 j.
  int Index(int i, int j) const { return static_cast<int>(i + static_cast<long long>(n1_) * j); }
  /// Number of rows.
  int GetN1() const { return n1_; }
  /// Number of columns.
  int GetN2() const { return n2_; }
  /// Number of elements in use, N1 N2.
  int GetDimension() const;

  /// Another shape over the same array; no element moves, no memory is allocated.
  ///
  /// In this order:
  /// (1) n1 = -1 and n2 <= N2: nothing.
  /// (2) n2 < 0: N1 = n1 if n1 <= N1, else nothing. So `SetDimension(n1, -1)` reduces the rows alone.
  /// (3) n1 n2 <= capacity: N1 = n1, N2 = n2, else nothing. The capacity is what was allocated, or n1 n2 of a view.
  ///
  /// Kept for compatibility: n1 = -1 with n2 > N2 reaches (3) with a negative product and leaves N1 = -1.
  void SetDimension(int n1, int n2);

  /// Every element in use times f. Bits: class A.
  TMatrix& operator*=(double f);

  /// Block transfer between rows i0 ... i0 + n1 - 1, columns j0 ... j0 + n2 - 1 and a dense buffer of n1 by n2.
  ///
  /// @param i0, j0  row and column of the block's first element
  /// @param n1, n2  rows and columns of the block
  /// @param op      code of a block transfer, see the head
  /// @param buf     element (m, k) belongs to (i0 + m, j0 + k)
  ///
  /// Nothing is done for n1 < 1 or n2 < 1.
  void SubMatrix(int i0, int j0, int n1, int n2, char op, double* buf);
  /// The same with M as the buffer: n1, n2 are M's rows and columns.
  void SubMatrix(int i0, int j0, char op, TMatrix& M);
  /// The same with M as the buffer, n1 = n2 = 3.
  void SubMatrix(int i0, int j0, char op, matr3_3& M);

private:
  bool owner_;
  short capacity_high_;  // bits 32 ... 47 of the capacity, in the room before the next field
  int capacity_;         // bits 0 ... 31
  int n1_;
  int n2_;
  double* data_;
};

/// Dense product c = a b.
///
/// @param a, b, c  dense, n by m, m by k, n by k
///
/// c(i, j) starts at +0.0 and receives a(i, l) b(l, j) for l = 0, 1, ... m - 1, every addition rounded; so no element
/// of the result is -0.0. With m < 1 all of c becomes 0.0; with n < 1 or k < 1 nothing is written. c must not overlap a
/// or b. Bits: class A.
ALIDADE_API void MatrixProduct(const double* a, const double* b, double* c, int n, int m, int k);

/// Dense product c = a' b: columns of a dotted with columns of b.
///
/// @param a, b, c  dense, n by m, n by k, **m by k**
///
/// c(i, j) starts at +0.0 and receives a(l, i) b(l, j) for l = 0, 1, ... n - 1. Note that n, the rows of both operands,
/// is the length of the sums. With n < 1 all of c becomes 0.0; with m < 1 or k < 1 nothing is written. c must not
/// overlap a or b. Bits: class A.
ALIDADE_API void MAtB(const double* a, const double* b, double* c, int n, int m, int k);

/// Product c = a b of operands in storage modes of their own.
///
/// @param a            n by m, stored as modeA says
/// @param b            m by k, stored as modeB says
/// @param c            receives the product, dense, n by k whatever the modes; or n elements, see (1)
/// @param modeA, modeB below 1 dense, 1 packed, above 1 diagonal: the modes and positions of LOC1
///
/// (1) 10 modeA + modeB is 22, as for two diagonals in mode 2: c[i] = a[i] b[i] for the n elements of a vector. Nothing
///     is added, so -0.0 stays; m and k are not read.
/// (2) 10 modeA + modeB is 0, as for two dense operands: the product of MatrixProduct.
/// (3) Otherwise c(i, j) starts at +0.0 and receives a(i, l) b(l, j) for l = 0, 1, ... m - 1; an l for which one of the
///     two elements is not stored is left out.
///
/// The sum of the modes decides, deliberately: (3, 3) are diagonals, too, but give a dense c by (3), while an odd pair
/// such as (1, 12) takes (1). Use 0, 1 and 2. With m < 1 all of c becomes 0.0 in (2) and (3); with n < 1 or k < 1
/// nothing is written there. c must not overlap a or b. Bits: class A.
ALIDADE_API void SMatrProduct(const double* a, const double* b, double* c, int n, int m, int modeA, int modeB, int k);

/// Congruence product c op a q a': propagation of the covariance q through the design a.
///
/// @param a   dense, n by m
/// @param q   packed, of order m
/// @param c   packed, of order n; on entry the target, read for '+' and '-' alone; on exit the result
/// @param op  operation code
///
/// | op | c becomes |
/// |---|---|
/// | '+' | c + a q a' |
/// | '-' | c - a q a' |
/// | '\|' | -(a q a'), summed from 0.0 |
/// | any other, '=', '0' and NUL among them | a q a', summed from 0.0 |
///
/// This reading is deliberate and differs from the operators below, where an unknown code adds.
/// For each l the local t(j) = sum over p of a(j, p) q(p, l), p = 0, 1, ... from +0.0; then c(i, j), i >= j, receives
/// a(i, l) t(j), or its negative, for l = 0, 1, ... m - 1. With m < 1 the target is cleared as the code says and that
/// is all; with n < 1 nothing is written. c must not overlap a or q. Bits: class A.
ALIDADE_API void SMatrProductAQAt(const double* a, const double* q, double* c, int n, int m, char op);

/// Right-hand side of normal equations, r op a' q l: design a, weights q, observations l.
///
/// @param r   vector of m elements, the target
/// @param op  '+' adds to r; **any other code overwrites r with the positive product**, '-' and '|' among them
///            (deliberate: this function never subtracts)
/// @param a   dense, n by m
/// @param q   packed, of order n
/// @param l   vector of n elements
///
/// r[i] receives l[j] t for j = 0, 1, ... n - 1, where t = sum over p of q(j, p) a(p, i), p = 0, 1, ... from +0.0. With
/// n < 1 r is cleared unless op is '+'; with m < 1 nothing is written. r must not overlap the others. Bits: class A.
ALIDADE_API void MRAtQL(double* r, char op, const double* a, const double* q, const double* l, int n, int m);

/// Block transfer between rows i0 ... i0 + n1 - 1, columns j0 ... j0 + n2 - 1 of a packed matrix and a dense buffer.
///
/// @param s       packed, of any order that holds the block
/// @param i0, j0  row and column of the block's first element
/// @param n1, n2  rows and columns of the block
/// @param op      code of a block transfer, see the head
/// @param buf     dense, n1 by n2; element (m, k) belongs to (i0 + m, j0 + k)
///
/// Column by column, without regard to the diagonal: in a block across it an element and its mirror are one and are
/// reached twice. '+' and '-' then take both buffer elements, '=' leaves the later one, '>' fills both. For a symmetric
/// block on the diagonal use SMatrAndSBlockOper. Nothing is done for n1 < 1 or n2 < 1. Bits: class A.
ALIDADE_API void SMatrAndBlockOper(double* s, int i0, int j0, int n1, int n2, char op, double* buf);

/// Block transfer between the diagonal block of order nk from (k0, k0) on of a packed matrix and a packed buffer.
///
/// @param s    packed, of order k0 + nk at least
/// @param k0   first row and column of the block
/// @param nk   order of the block
/// @param op   code of a block transfer, see the head
/// @param buf  packed, of order nk
///
/// Every element is reached once, row by row. Nothing is done for nk < 1. Bits: class A.
ALIDADE_API void SMatrAndSBlockOper(double* s, int k0, int nk, char op, double* buf);

/// Block transfer between rows i0 ... i0 + n1 - 1, columns j0 ... j0 + n2 - 1 of a dense matrix and a dense buffer.
///
/// @param ld      number of rows of m
/// @param m       dense
/// @param i0, j0  row and column of the block's first element
/// @param n1, n2  rows and columns of the block
/// @param op      code of a block transfer, see the head
/// @param buf     dense, n1 by n2; element (m, k) belongs to (i0 + m, j0 + k)
///
/// Nothing is done for n1 < 1 or n2 < 1. Bits: class A.
ALIDADE_API void MatrAndBlockOper(int ld, double* m, int i0, int j0, int n1, int n2, char op, double* buf);

/// Position of a matrix element in one of three storage modes. **Indices and result count from 1.**
///
/// @param i, j  row and column, from 1
/// @param n     number of rows; used below mode 1 only
/// @param m     number of columns; not used
/// @param ms    storage mode
/// @return the position, from 1; 0 for an element that the mode does not store
///
/// | ms | storage | position |
/// |---|---|---|
/// | below 1 | dense | i + (j - 1) n |
/// | 1 | packed | i + j(j - 1)/2 for i < j, else j + i(i - 1)/2 |
/// | above 1 | diagonal | i on the diagonal, else 0 |
///
/// Packed is the form at the head: upper triangle by columns and lower triangle by rows are the same sequence.
ALIDADE_API int LOC1(int i, int j, int n, int m, int ms);

/// @name Operator family
/// Target T op product of two or three matrices, one function for each formula.
///
/// The names read as the formula: `SMATRop` has a packed target, `MATRop` a dense one; S is a packed operand, R a dense
/// one, a digit tells two of a kind apart, a final t transposes. `SMATRopABti` is the irregular one: A B' + B A'.
///
/// | op | target |
/// |---|---|
/// | '=' | T = product: first cleared, then added |
/// | '\|' | T = -product: first cleared, then subtracted |
/// | '-' | T = T - product |
/// | '+' and **any other** | T = T + product |
///
/// SMATRopR_S_Rt alone reads the code as SMatrProductAQAt does.
///
/// What '=' and '|' clear differs on purpose, and so does the place of element (i, j) of a dense target:
///
/// | target of | cleared | element (i, j) at |
/// |---|---|---|
/// | SMATRop... (but R_S_Rt) | the triangle in use, T's Dim1 | packed |
/// | SMATRopR_S_Rt | the triangle of order N1 of R | packed |
/// | MATRopS_R, MATRopR_S, MATRopR1t_R | all N1 N2 elements of T | i + (N1 of T) j |
/// | MATRopR1_R2, MATRopR1_R2t, MATRopR1_S_R2t, MATRopR1_R2_R3t | as many as the product has | i + (product's rows) j |
///
/// So a T larger than the product keeps what lies outside in the last four and loses it in the three before; give
/// those four a T with exactly the rows of the product. Each function reads the sizes it names and no others, compares
/// none, and reads operands by their own N1 (B of SMATRopABti by A's). A size below 1 leaves the target alone but for
/// the clearing.
///
/// Every element of T receives its terms one by one in ascending order of the index of summation, each addition
/// rounded. Inner sums of three factors are formed from +0.0 in ascending order first. T must not share elements with
/// an operand; two operands may be one matrix. Bits: class A.
/// @{

/// T op R' S R: normal matrix of the design R under the weights S.
///
/// @param T  order b
/// @param R  a by b; a and b are taken from here
/// @param S  order a
///
/// T(k, i), i <= k, receives R(j, i) t for j = 0 ... a - 1, where t = sum over l of S(j, l) R(l, k).
ALIDADE_API void SMATRopRt_S_R(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S);

/// T op R' R: normal matrix of a design of unit weights.
///
/// @param T  order b
/// @param R  a by b; a and b are taken from here
///
/// T(k, i), i <= k, receives R(l, i) R(l, k) for l = 0 ... a - 1.
ALIDADE_API void SMATRopRt_R(TSMatrix& T, char op, const TMatrix& R);

/// T op A B' + B A'.
///
/// @param T  order a
/// @param A  a by b; a and b are taken from here
/// @param B  read as a by b
///
/// T(k, i), i <= k, receives A(k, l) B(i, l) + A(i, l) B(k, l), summed first, for l = 0 ... b - 1.
ALIDADE_API void SMATRopABti(TSMatrix& T, char op, const TMatrix& A, const TMatrix& B);

/// T op lower triangle of S1 S2.
///
/// @param T   order n
/// @param S1  order n, taken from its Dim1
/// @param S2  order n
///
/// T(k, i), i <= k, receives S1(k, l) S2(l, i) for l = 0 ... n - 1. The upper triangle, different unless S1 and S2
/// commute, is deliberately not formed: it is for the caller to know that the product is symmetric.
ALIDADE_API void SMATRopS1_S2(TSMatrix& T, char op, const TSMatrix& S1, const TSMatrix& S2);

/// T op R S R', by SMatrProductAQAt and with its reading of op: any code but '+', '-' and '|' **overwrites**.
///
/// @param T  order a; its Dim1 is not read
/// @param R  a by b; a and b are taken from here
/// @param S  order b
ALIDADE_API void SMATRopR_S_Rt(TSMatrix& T, char op, const TMatrix& R, const TSMatrix& S);

/// T op S R.
///
/// @param T  a by b, or larger
/// @param S  order a
/// @param R  a by b; a and b are taken from here
///
/// T(i, j) receives S(i, l) R(l, j) for l = 0 ... a - 1.
ALIDADE_API void MATRopS_R(TMatrix& T, char op, const TSMatrix& S, const TMatrix& R);

/// T op R S.
///
/// @param T  a by b, or larger
/// @param R  a by b; a and b are taken from here
/// @param S  order b
///
/// T(i, j) receives R(i, l) S(l, j) for l = 0 ... b - 1.
ALIDADE_API void MATRopR_S(TMatrix& T, char op, const TMatrix& R, const TSMatrix& S);

/// T op R1' R2.
///
/// @param T   b by c, or larger
/// @param R1  a by b; a and b are taken from here
/// @param R2  a by c; c is taken from here
///
/// T(i, j) receives R1(l, i) R2(l, j) for l = 0 ... a - 1.
ALIDADE_API void MATRopR1t_R(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);

/// T op R1 R2.
///
/// @param T   a by c
/// @param R1  a by b; a and b are taken from here
/// @param R2  b by c; c is taken from here
///
/// T(i, j) receives R1(i, l) R2(l, j) for l = 0 ... b - 1.
ALIDADE_API void MATRopR1_R2(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);

/// T op R1 R2'.
///
/// @param T   a by c
/// @param R1  a by b; a is taken from here
/// @param R2  c by b; c and b are taken from here
///
/// T(i, j) receives R1(i, l) R2(j, l) for l = 0 ... b - 1; columns of R1 beyond b are ignored.
ALIDADE_API void MATRopR1_R2t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2);

/// T op R1 S R2': covariance between two linear functions of parameters with the covariance S.
///
/// @param T   a by c
/// @param R1  a by b; a is taken from here
/// @param S   order b
/// @param R2  c by b; c and b are taken from here
///
/// T(i, p) receives R2(p, j) t for j = 0 ... b - 1, where t = sum over l of R1(i, l) S(l, j). Columns of R1 beyond b
/// are ignored.
ALIDADE_API void MATRopR1_S_R2t(TMatrix& T, char op, const TMatrix& R1, const TSMatrix& S, const TMatrix& R2);

/// T op R1 R2 R3'.
///
/// @param T   a by d
/// @param R1  a by b; a is taken from here
/// @param R2  b by c; b is taken from here
/// @param R3  d by c; d and c are taken from here
///
/// T(i, p) receives R3(p, j) t for j = 0 ... c - 1, where t = sum over l of R1(i, l) R2(l, j), l = 0 ... b - 1.
ALIDADE_API void MATRopR1_R2_R3t(TMatrix& T, char op, const TMatrix& R1, const TMatrix& R2, const TMatrix& R3);

/// @}

/// Inverse of a normal matrix, in place, by a Cholesky factorisation that skips zeros.
///
/// @param N         on entry positive definite; on exit its inverse. The order n is N's order in use
/// @param progress  null, or a percentage that grows during the work
/// @param span      percentage points that this call may add to *progress
///
/// | result | meaning | N |
/// |---|---|---|
/// | 0 | done, also for n < 1 | the inverse |
/// | k, 1 to n | pivot k, **counted from 1**, is not above 0.0, or a NaN | columns 1 ... k - 1 finished, the rest kept |
///
/// The finished columns hold the Cholesky factor L, its diagonal as reciprocals. At a result k the matrix is not
/// positive definite: parameter k is not determined by those before it and the observations. With rounding a singular
/// matrix may also pass, with a very large inverse: compare the diagonal with what is plausible.
///
/// Progress: with b the value at entry, t = span (1/3) and u = ((t/n)/n)/n, for every k that is a multiple of 8:
/// b + (t - (n - k + 1)^3 u) at the start of column k of the factorisation, (b + t) + k^3 u at the start of row k of
/// the second phase, ((b + t) + t) + k^3 u after row k of the third; plus 0.5, truncated towards zero, at most 99.
/// Where rows are done a block at a time, the values of a block are stored one after the other when it is done. Below
/// order 8 none is ever stored, and the final value is the caller's to set. Each value is stored as a whole
/// (relaxed, as an atomic int would be): another thread may watch *progress if it reads it atomically, too, as with
/// `__atomic_load_n` or through `std::atomic_ref`. What it sees orders nothing else.
///
/// Method: N = L L' column by column with reciprocal square roots of the pivots, inversion of L by rows, and the
/// product of the inverse factor's transpose with itself (Golub and Van Loan, Matrix Computations, 4th ed., 4.2
/// and 3.1; Higham, Accuracy and Stability of Numerical Algorithms, 2nd ed., 14.2). An element that is exactly 0.0 or
/// -0.0 takes no part in any sum; a factor element whose original is zero and that met no pair of nonzeros is +0.0. So
/// a banded or a bordered matrix costs far less than a full one, and a block-diagonal one keeps exact zeros outside its
/// blocks. A NaN counts as nonzero.
///
/// Accuracy: norm(I - N X) < 30 n eps norm(N) norm(X) in the 1-norm, the threshold of Reference LAPACK's own tests.
///
/// Exceptions: an invalid operation and an overflow are raised, and trapped, where the loops that skip zeros raise
/// them. Underflow and inexact may be raised in addition, and are not trapped, from n = 8 on.
///
/// Takes at most 16 KB of stack. Work memory from the heap above n = 24: 41 KB at most up to n = 64, then 48 KB, 16 KB,
/// and 99 rows of n elements at most; on a machine without vectors of doubles two rows above n = 64. All of it is had
/// before anything is written. A failure to do so throws what the platform's new throws and leaves N and *progress as
/// they were. Bits: class A.
ALIDADE_API int RareInversion(TSMatrix& N, int* progress, int span);

/// Completes the inverse of a leading block to the pseudo-inverse of the whole matrix.
///
/// @param N  order n in use. On entry the leading block of order m = n - d holds the **inverse** of the normal matrix's
///           leading block, and the block of rows 0 ... m - 1, columns m ... n - 1 is the normal matrix's own; the
///           trailing block is not read. On exit the pseudo-inverse
/// @param d  rank defect: the last d parameters depend on the others
///
/// | result | meaning |
/// |---|---|
/// | 0 | done; also for d < 1, where nothing is done |
/// | -1 | d > n, or the auxiliary matrix I + H'H of order d was not positive definite (NaN, overflow); N is unchanged |
///
/// For a matrix of rank m whose last d rows depend on the first m, three calls give the pseudo-inverse:
///
///     N.SetDim1(n - d);
///     if (RareInversion(N, nullptr, 0) == 0) {
///       N.SetDim1(n);
///       PseudoInversion(N, d);
///     }
///
/// Nothing checks that the rank is m. N's order in use is n again on every way out.
///
/// Method: with Q the leading block and G the coupling block, H = Q G, and F = (I; H') gives N = F Q^-1 F', the
/// full-rank factorisation whose pseudo-inverse is F (F'F)^-1 Q (F'F)^-1 F' (Ben-Israel and Greville, Generalized
/// Inverses, 2nd ed., 1.6), with (F'F)^-1 = I - H (I + H'H)^-1 H' by Woodbury's formula. The operators of the family
/// above carry it out. Takes at most 16 KB of stack, and O((m + d) d) elements of the heap; a failed allocation throws
/// what the platform's new throws and leaves N, its order in use included, as it was. Bits: class A.
ALIDADE_API int PseudoInversion(TSMatrix& N, int d);

// Scalar helpers, after the intrinsic functions of classic scientific libraries. They have no state and report no
// errors. The library itself does not call them.

/// Smallest of a counted list of ints.
///
/// @param n        number of values that follow
/// @param a1, ...  the values, each an int. At least two must be passed: the second is read whatever n is, so that
///                 n <= 2 (also zero and negative) gives the smaller of a1 and a2. Values beyond the n-th are not read
/// @return the smallest
///
/// As with every variable argument list the types are taken on trust: passing a long or a double, or fewer values than
/// said, is undefined. Bits: class A.
ALIDADE_API int min1(int n, int a1, ...);

/// Largest of a counted list of ints. Arguments as for `min1`.
ALIDADE_API int max1(int n, int a1, ...);

/// Smallest of a counted list of doubles.
///
/// @param n        number of values that follow
/// @param a1, ...  the values, each a double: write 3.0, a plain 3 is read as garbage. At least two must be passed: the
///                 second is read whatever n is
/// @return the running value, which starts as a1 and gives way only to a value strictly below it. So of equal values
///         (zeros of both signs included) the first stays, a NaN replaces nothing, and a NaN in front stays to the end
///
/// Bits: class A.
ALIDADE_API double amin1(int n, double a1, ...);

/// Largest of a counted list of doubles: as `amin1`, but gives way only to a value strictly above.
ALIDADE_API double amax1(int n, double a1, ...);

/// x to the power n.
///
/// @param x  any number
/// @param n  any exponent
/// @return 1.0 for n = 0, whatever x is (a zero and a NaN too); for |n| <= 31 the product of |n| factors x taken one
///         after the other, for negative n its reciprocal; beyond that pow(x, n)
///
/// Each of the up to 30 products is rounded, where pow is right to about one unit of the last place; the two sides of
/// the limit differ accordingly (deliberate). A negative power may overflow or underflow in the product before it is
/// inverted. Zero to a negative power is an infinity. Bits: class A for |n| <= 31, class B beyond (calls pow).
ALIDADE_API double power(double x, int n);

/// a to the power n, in ints. The first line that applies:
///
/// | case | result |
/// |---|---|
/// | a = 0 or a = 1 | a, so that 0 to the power 0 is 0 |
/// | n < 0 | 0, also for a = -1 |
/// | n = 0 | 1 |
/// | a = -1 | 1 for even n, -1 for odd n |
/// | n > 31 | 2147483647, whatever the sign of a |
/// | else | the product of n factors, modulo 2^32 |
///
/// Products that do not fit into an int wrap around without notice (deliberate): power(2, 31) is -2147483648.
/// Bits: class A.
ALIDADE_API int power(int a, int n);

/// |a| with the sign of b: |a| when b >= 0, -|a| when b < 0. The smallest int has no positive counterpart and stays.
ALIDADE_API int sign(int a, int b);

/// |a| with the sign of b.
///
/// @return |a| when b >= 0.0, else -|a|. What counts is the comparison, not the sign bit (unlike copysign): b = -0.0
///         gives +|a| and b = NaN gives -|a|. |a| clears the sign bit of a, that of a NaN too
///
/// Bits: class A.
ALIDADE_API double sign(double a, double b);

/// The low 32 bits of v, rotated by s: to the left for positive s, to the right for negative.
///
/// @param v  the value. Where long has 64 bits the upper half is ignored. Not modified, though passed by reference
/// @param s  any number of bits, taken modulo 32. Not modified
/// @return the 32 bits as an int
ALIDADE_API int ishc(long& v, int& s);

/// The 16 bits of v, rotated to the left by s modulo 16; for negative s not rotated at all.
///
/// @param v  the value. Not modified, though passed by reference
/// @param s  number of bits. Unlike in the other two widths, a negative number rotates nothing (deliberate)
/// @return the 16 bits, zero-extended: 0 to 65535
ALIDADE_API int ishc(short& v, int& s);

/// The 8 bits of v, rotated by s: to the left for positive s, to the right for negative.
///
/// @param v  the value, char signed or not. Not modified, though passed by reference
/// @param s  any number of bits, taken modulo 8. Not modified
/// @return the 8 bits, zero-extended: 0 to 255
ALIDADE_API int ishc(char& v, int& s);

/// x moved by two spacings of floats near x, up for s >= 0, else down (for a NaN too).
///
/// The step is 2^max(e - 23, -125), where x = m 2^e with 0.5 <= |m| < 1 and e = 0 for zeros, infinities and NaN. The
/// sum is in single precision. Beyond the largest float there is infinity. Bits: class A.
ALIDADE_API float nearest(float x, float s);

/// x moved by a quarter of the spacing of doubles near x, up for s >= 0.0, else down (for a NaN too).
///
/// The step is 2^max(e - 55, -1021), where x = m 2^e with 0.5 <= |m| < 1 and e = 0 for zeros, infinities and NaN. A
/// quarter of a spacing rounds away, so that the result mostly is x itself (deliberate; for the neighbouring double use
/// nextafter). It moves zeros, to 2^-55, and numbers below about 2^-967, where the step no longer shrinks.
/// Bits: class A.
ALIDADE_API double nearest(double x, double s);

#endif
