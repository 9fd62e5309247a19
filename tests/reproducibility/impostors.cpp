// What a host program may innocently define: functions of the library's own names and signatures that do something
// else. Inside the library nothing may change.

#include <alidade/alidade.h>

double RR(const Coord& /*c*/) { return -1.0; }
double R2(const Coord& /*c*/) { return -1.0; }
double RR(const double& /*a*/, const double& /*b*/, const double& /*c*/) { return -1.0; }

bool FindLineCoeffs(TAbstractPoint2<double> /*p1*/, TAbstractPoint2<double> /*p2*/, CLineCoeffs& /*line*/) {
  return false;
}
bool FindPerpendicular(CLineCoeffs /*line*/, TAbstractPoint2<double> /*p*/, CLineCoeffs& perp) {
  perp.a() = perp.b() = perp.c() = 0.0;
  return false;
}
bool FindLinesIntersection(CLineCoeffs /*l1*/, CLineCoeffs /*l2*/, TAbstractPoint2<double>& p) {
  p = TAbstractPoint2<double>(0.0, 0.0);
  return false;
}
double triangle_area(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/, double /*x3*/, double /*y3*/) {
  return -1.0;
}
double triangle_area(TAbstractPoint2<double> /*p1*/, TAbstractPoint2<double> /*p2*/, TAbstractPoint2<double> /*p3*/) {
  return -1.0;
}

void MatrixProduct(const double* /*a*/, const double* /*b*/, double* /*c*/, int /*n*/, int /*m*/, int /*k*/) {}
void MAtB(const double* /*a*/, const double* /*b*/, double* /*c*/, int /*n*/, int /*m*/, int /*k*/) {}
void SMatrProduct(const double* /*a*/, const double* /*b*/, double* /*c*/, int /*n*/, int /*m*/, int /*modeA*/,
                  int /*modeB*/, int /*k*/) {}
void SMatrProductAQAt(const double* /*a*/, const double* /*q*/, double* /*c*/, int /*n*/, int /*m*/, char /*op*/) {}
void MRAtQL(double* /*r*/, char /*op*/, const double* /*a*/, const double* /*q*/, const double* /*l*/, int /*n*/,
            int /*m*/) {}
void SMatrAndBlockOper(double* /*s*/, int /*i0*/, int /*j0*/, int /*n1*/, int /*n2*/, char /*op*/, double* /*buf*/) {}
void SMatrAndSBlockOper(double* /*s*/, int /*k0*/, int /*nk*/, char /*op*/, double* /*buf*/) {}
void MatrAndBlockOper(int /*ld*/, double* /*m*/, int /*i0*/, int /*j0*/, int /*n1*/, int /*n2*/, char /*op*/,
                      double* /*buf*/) {}
int LOC1(int /*i*/, int /*j*/, int /*n*/, int /*m*/, int /*ms*/) { return 0; }

void SMATRopRt_S_R(TSMatrix& /*T*/, char /*op*/, const TMatrix& /*R*/, const TSMatrix& /*S*/) {}
void SMATRopRt_R(TSMatrix& /*T*/, char /*op*/, const TMatrix& /*R*/) {}
void SMATRopABti(TSMatrix& /*T*/, char /*op*/, const TMatrix& /*A*/, const TMatrix& /*B*/) {}
void SMATRopS1_S2(TSMatrix& /*T*/, char /*op*/, const TSMatrix& /*S1*/, const TSMatrix& /*S2*/) {}
void SMATRopR_S_Rt(TSMatrix& /*T*/, char /*op*/, const TMatrix& /*R*/, const TSMatrix& /*S*/) {}
void MATRopS_R(TMatrix& /*T*/, char /*op*/, const TSMatrix& /*S*/, const TMatrix& /*R*/) {}
void MATRopR_S(TMatrix& /*T*/, char /*op*/, const TMatrix& /*R*/, const TSMatrix& /*S*/) {}
void MATRopR1t_R(TMatrix& /*T*/, char /*op*/, const TMatrix& /*R1*/, const TMatrix& /*R2*/) {}
void MATRopR1_R2(TMatrix& /*T*/, char /*op*/, const TMatrix& /*R1*/, const TMatrix& /*R2*/) {}
void MATRopR1_R2t(TMatrix& /*T*/, char /*op*/, const TMatrix& /*R1*/, const TMatrix& /*R2*/) {}

int min1(int /*n*/, int /*a1*/, ...) { return -1; }
int max1(int /*n*/, int /*a1*/, ...) { return -1; }
double amin1(int /*n*/, double /*a1*/, ...) { return -1.0; }
double amax1(int /*n*/, double /*a1*/, ...) { return -1.0; }
double power(double /*x*/, int /*n*/) { return -1.0; }
int power(int /*a*/, int /*n*/) { return -1; }
int sign(int /*a*/, int /*b*/) { return -1; }
double sign(double /*a*/, double /*b*/) { return -1.0; }
double nearest(double /*x*/, double /*s*/) { return -1.0; }
float nearest(float /*x*/, float /*s*/) { return -1.0F; }
float CHI_1SDE(int /*level*/, int /*df*/) { return -1.0F; }

// Names such as a library might use within.
namespace alidade {
double ordered_dot(const double* /*a*/, const double* /*b*/, int /*n*/) { return -1.0; }
int packed_index(int /*i*/, int /*j*/) { return -1; }
int truncate_to_int(double /*v*/) { return -1; }
double vector_length(double /*x*/, double /*y*/, double /*z*/) { return -1.0; }
}  // namespace alidade
