f = Orvel.factory
v = f.createvec3d.(1, 2, 3)

assert_refused("prxVector3dC.add(string)" + NOT_CONVERTIBLE) { v.add("word") }
assert_refused("prxVector3dC.add(number)" + NOT_CONVERTIBLE) { v.add(1) }
assert_refused("prxVector3dC.add(nothing)" + NOT_CONVERTIBLE) { v.add(nil) }
assert_refused("prxVector3dC.add(prxVector2dC)" + NOT_CONVERTIBLE) { v.add(f.createvec2d) }
assert_refused("prxVector3dC.x(string)" + NOT_CONVERTIBLE) { v.x = "1" }
assert_refused("prxVector3dC.add()" + NO_MEMBER) { v.add }
assert_refused("prxVector3dC.len(number)" + NO_MEMBER) { v.len(1) }
assert_refused("prxVector3dC.len(number)" + NO_MEMBER) { v.len = 1 }
assert_refused("prxVector3dC.missing(number, string)" + NO_MEMBER) { v.missing(1, "two") }
assert_refused("prxMathFactoryC.Create(number)" + NOT_CONVERTIBLE) { f.Create(3) }
assert_refused("no member takes an argument of class Array") { v.add([1, 2, 3]) }
assert_shows "vector3d(1, 2, 3)", v

# Names are spelt exactly; what is not known gives nothing.
assert_shows "vector3d(0, 0, 0)", f.Create("vector3d")
assert_shows "vector2d(0, 0)", f.Create("vector2d")
assert_shows "matrix3x3(0, 0, 0; 0, 0, 0; 0, 0, 0)", f.Create("matrix3x3")
assert_equal nil, f.Create("Vector3d")
assert_equal nil, f.Create("")
assert_equal nil, Orvel.create("linquet.vector4d")
assert_shows "vector3d(0, 0, 0)", Orvel.create("linquet.vector3d")

# Every error is a StandardError, and the program goes on.
count = 0
100.times do
  begin
    v.missing
  rescue => error
    count += 1
  end
end
assert_equal 100, count
