f = Orvel.factory
v = f.createvec3d.(1, 2, 3)
w = f.createvec3d.(4, -5, 6)

# Arithmetic makes new objects and leaves both alone.
assert_shows "vector3d(5, -3, 9)", v.add(w)
assert_shows "vector3d(-3, 7, -3)", v.sub(w)
assert_shows "vector3d(2, 4, 6)", v.mul(2)
assert_shows "vector3d(0.5, 1, 1.5)", v.div(2)
assert_shows "vector3d(27, 6, -13)", v.cross(w)
assert_equal 12, v.skalar(w)
assert_equal 7, f.createvec3d.(2, 3, 6).len
assert_shows "vector3d(1, 2, 3)", v
assert_shows "vector3d(4, -5, 6)", w
assert v.add(w) != v, "a new object"

# Setters change the receiver and give it back.
assert_equal v, v.x(5)
assert v.x(5).y(6).equal?(v), "the same Ruby object"
v.z = 7
assert_shows "vector3d(5, 6, 7)", v
assert_equal [5, 6, 7], [v.x, v.y, v.z]

# The default member.
assert_equal v, v.(7, 8, 9)
assert_shows "vector3d(7, 8, 9)", v
assert_refused("prxVector3dC(number, number)" + NO_MEMBER) { v.(1, 2) }

# The length asked for; none for the zero vector.
n = f.createvec3d.(3, 4, 0).norm(2)
assert_near 1.2, n.x
assert_near 1.6, n.y
assert_equal 0, n.z
assert f.createvec3d.norm(2).x.nan?, "the zero vector has no direction"

# No guard against a zero divisor.
d = f.createvec3d.(1, -1, 0).div(0)
assert_equal Float::INFINITY, d.x
assert_equal(-Float::INFINITY, d.y)
assert d.z.nan?

# Two dimensions.
a = f.createvec2d.(3, 4)
assert_equal 5, a.len
assert_shows "vector2d(-4, 3)", a.perpendicular
assert_shows "vector2d(6, 8)", a.norm(10)
assert_shows "vector2d(5, 6)", a.x(5).y(6)
assert_refused("prxVector2dC.cross(prxVector2dC)" + NO_MEMBER) { a.cross(a) }
assert_refused("prxVector2dC.z()" + NO_MEMBER) { a.z }

# Each has its factory.
assert_shows "mathfactory", v.Factory
assert_shows "vector2d(0, 0)", a.Factory.createvec2d
