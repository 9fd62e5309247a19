#define EIGEN_PEER eigen_native
#define EIGEN_PEER_NAME "Eigen native"
#define Eigen Eigen_native
#include "eigen_peer.inc"
