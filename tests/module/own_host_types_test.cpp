// A host with a CPoint and a CRect of its own, which are nothing like the stand-ins, uses the whole library all the
// same.

#define ALIDADE_WITHOUT_HOST_TYPES

#include <string>

enum CRect { kEmpty };
struct CPoint {
  std::string name;
};

#include <alidade/alidade.h>
#include <gtest/gtest.h>

#include <type_traits>

namespace {

TEST(OwnHostTypes, StandBesideTheLibrarys) {
  const CPoint corner{"A 17"};
  const TAbstractPoint2<double> a(1.0, 2.0);
  const TAbstractPoint2<double> b = a + TAbstractPoint2<double>(3.0, 4.0);
  TAbstractRect<double> r(a, b);
  EXPECT_EQ(r.Normalize().Area(), 12.0);
  CLineCoeffs line;
  EXPECT_TRUE(FindLineCoeffs(a, b, line));
  EXPECT_EQ(corner.name, "A 17");
  EXPECT_EQ(kEmpty, CRect());
  EXPECT_FALSE((std::is_convertible_v<TAbstractPoint2<double>, CPoint>));
  EXPECT_FALSE((std::is_constructible_v<TAbstractPoint2<double>, CPoint>));
}

}  // namespace
