#include "eigenPeer.h"

#include <Eigen/Geometry>
#include <Eigen/LU>

namespace {

using Matrix = Eigen::Matrix<double, 4, 4, Eigen::RowMajor>;
using MatrixMap = Eigen::Map<Matrix>;
using ConstMatrixMap = Eigen::Map<Matrix const>;
using VectorMap = Eigen::Map<Eigen::Vector3d>;
using ConstVectorMap = Eigen::Map<Eigen::Vector3d const>;
using QuaternionMap = Eigen::Map<Eigen::Quaterniond>;
using ConstQuaternionMap = Eigen::Map<Eigen::Quaterniond const>;

} // namespace

void eigenPeer::multiply(double (*result)[4], double const (*a)[4], double const (*b)[4])
{
    MatrixMap product(*result);
    product = ConstMatrixMap(*a) * ConstMatrixMap(*b); // by way of a temporary
}

void eigenPeer::invert(double (*m)[4])
{
    MatrixMap map(*m);
    map = map.inverse().eval();
}

void eigenPeer::invertOrthogonal(double (*m)[4])
{
    MatrixMap map(*m);
    Eigen::Matrix3d const turned = map.topLeftCorner<3, 3>().transpose();
    Eigen::Vector3d const moved = -(turned * map.topRightCorner<3, 1>());
    map.topLeftCorner<3, 3>() = turned;
    map.topRightCorner<3, 1>() = moved;
}

void eigenPeer::transform(double const (*m)[4], double const *point, double *image)
{
    ConstMatrixMap const map(*m);
    VectorMap mapped(image);
    mapped.noalias() =
        map.topLeftCorner<3, 3>() * ConstVectorMap(point) + map.topRightCorner<3, 1>();
}

void eigenPeer::transformRespectW(double const (*m)[4], double const *point, double *image)
{
    ConstMatrixMap const map(*m);
    Eigen::Vector4d const full = map * ConstVectorMap(point).homogeneous();
    VectorMap mapped(image);
    mapped = full.hnormalized();
}

void eigenPeer::matrixOf(double const *quaternion, double (*m)[4])
{
    MatrixMap map(*m);
    map.setIdentity();
    map.topLeftCorner<3, 3>() = ConstQuaternionMap(quaternion).toRotationMatrix().transpose();
}

void eigenPeer::quaternionOf(double const (*m)[4], double *quaternion)
{
    ConstMatrixMap const map(*m);
    QuaternionMap result(quaternion);
    result = Eigen::Matrix3d(map.topLeftCorner<3, 3>().transpose());
}

void eigenPeer::slerp(double const *from, double const *to, double t, double *between)
{
    QuaternionMap result(between);
    result = ConstQuaternionMap(from).slerp(t, ConstQuaternionMap(to));
}
