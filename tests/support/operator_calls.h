#ifndef ALIDADE_TESTS_SUPPORT_OPERATOR_CALLS_H
#define ALIDADE_TESTS_SUPPORT_OPERATOR_CALLS_H

// The operators, which bear the same names in the library and in the reference: the types of the arguments decide which
// of the two is called.

#include <alidade/matrix.h>

#include "reference/operators.h"

namespace operator_calls {

constexpr auto rt_s_r = [](auto& t, char op, const auto&... in) { SMATRopRt_S_R(t, op, in...); };
constexpr auto rt_r = [](auto& t, char op, const auto&... in) { SMATRopRt_R(t, op, in...); };
constexpr auto a_bt = [](auto& t, char op, const auto&... in) { SMATRopABti(t, op, in...); };
constexpr auto s1_s2 = [](auto& t, char op, const auto&... in) { SMATRopS1_S2(t, op, in...); };
constexpr auto r_s_rt = [](auto& t, char op, const auto&... in) { SMATRopR_S_Rt(t, op, in...); };
constexpr auto s_r = [](auto& t, char op, const auto&... in) { MATRopS_R(t, op, in...); };
constexpr auto r_s = [](auto& t, char op, const auto&... in) { MATRopR_S(t, op, in...); };
constexpr auto r1t_r = [](auto& t, char op, const auto&... in) { MATRopR1t_R(t, op, in...); };
constexpr auto r1_r2 = [](auto& t, char op, const auto&... in) { MATRopR1_R2(t, op, in...); };
constexpr auto r1_r2t = [](auto& t, char op, const auto&... in) { MATRopR1_R2t(t, op, in...); };
constexpr auto r1_s_r2t = [](auto& t, char op, const auto&... in) { MATRopR1_S_R2t(t, op, in...); };
constexpr auto r1_r2_r3t = [](auto& t, char op, const auto&... in) { MATRopR1_R2_R3t(t, op, in...); };

}  // namespace operator_calls

#endif
