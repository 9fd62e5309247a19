#define EIGEN_PEER eigen_native
#define Eigen Eigen_native
#include "eigen_peer.inc"
