f = Orvel.factory

# New matrices are all zero.
zero = f.createmat4x4
assert_shows "matrix4x4(0, 0, 0, 0; 0, 0, 0, 0; 0, 0, 0, 0; 0, 0, 0, 0)", zero
assert_equal [0, 0, 0], [zero.Roll, zero.Pitch, zero.Yaw]

# A vector that lives in its matrix.
m = f.createmat4x4.ident
assert_shows "vector3d(1, 0, 0)", m.X
m.X.x(3)
assert_equal 3, m.X.x
assert_shows "vector3d(3, 0, 0)", m.mul(f.createvec3d.(1, 0, 0))
x = m.X
x.(4, 5, 6)
assert_shows "matrix4x4(4, 5, 6, 0; 0, 1, 0, 0; 0, 0, 1, 0; 0, 0, 0, 1)", m
m.X = f.createvec3d.(7, 8, 9)
assert_shows "vector3d(7, 8, 9)", x
assert_shows "vector3d(8, 9, 10)", x.add(f.createvec3d.(1, 1, 1))
assert_shows "vector3d(7, 8, 9)", x
x.x += 1
assert_equal 8, m.X.x

# It keeps the matrix alive.
def axis_of_a_matrix_that_nobody_holds(f)
  f.createmat3x3.ident.Y
end
y = axis_of_a_matrix_that_nobody_holds(f)
GC.start
1000.times { f.createmat3x3 }
GC.start
assert_shows "vector3d(0, 1, 0)", y
y.y(2)
assert_shows "vector3d(0, 2, 0)", y

# A 3x3 matrix has no translation.
m3 = f.createmat3x3.ident
assert_refused("prxMatrix3x3C.T()" + NO_MEMBER) { m3.T }
assert_refused("prxMatrix3x3C.T(prxVector3dC)" + NO_MEMBER) { m3.T = y }

# mul goes by the type of its argument.
m3.Z = f.createvec3d.(5, 6, 1)
assert_shows "matrix3x3(1, 0, 0; 0, 1, 0; 10, 12, 1)", m3.mul(m3)
assert_shows "vector3d(16, 20, 3)", m3.mul(f.createvec3d.(1, 2, 3))
assert_shows "vector2d(6, 8)", m3.mul(f.createvec2d.(1, 2))
assert_refused("prxMatrix3x3C.mul(number)" + NOT_CONVERTIBLE) { m3.mul(2) }
t = f.createmat4x4.ident
t.T = f.createvec3d.(5, 6, 7)
assert_shows "vector3d(6, 8, 10)", t.mul(f.createvec3d.(1, 2, 3))
assert_shows "vector3d(6, 8, 7)", t.mul(f.createvec2d.(1, 2))

# inv is the transposition of a 3x3 matrix, and undoes a rigid motion of space.
scaling = f.createmat3x3
scaling.X.x(2)
scaling.Y.y(3)
scaling.Z.z(4)
assert_shows scaling.inspect, scaling.inv
motion = f.createmat4x4.rotAngle(20, -35, 110)
motion.T = f.createvec3d.(5, -6, 7)
back = motion.inv.mul(motion.mul(f.createvec3d.(1, 2, 3)))
assert_near 1, back.x
assert_near 2, back.y
assert_near 3, back.z
wide = f.createmat4x4.ident
wide.X.x(2)
assert_equal 4, wide.inv.mul(wide).X.x

# Rotations.
assert_near(-30, f.createmat4x4.rotAngle(30, 0, 0).Yaw)
assert_near(-30, f.createmat4x4.rotAngle(0, 30, 0).Roll)
assert_near(-30, f.createmat4x4.rotAngle(0, 0, 30).Pitch)
third = t.rotVector(f.createvec3d.(1, 1, 1), 120)
assert_equal t, third
image = third.mul(f.createvec3d.(1, 0, 0))
assert_near 1, image.y
assert_shows "vector3d(0, 0, 0)", t.T
assert_equal 0, t.conv3x3.rotAngle(0, 0, 0).X.y
