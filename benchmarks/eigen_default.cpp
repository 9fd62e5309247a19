#define EIGEN_PEER eigen_default
#define Eigen Eigen_default
#include "eigen_peer.inc"
