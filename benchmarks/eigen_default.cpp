#define EIGEN_PEER eigen_default
#define EIGEN_PEER_NAME "Eigen"
#define Eigen Eigen_default
#include "eigen_peer.inc"
