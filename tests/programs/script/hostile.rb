# No script crashes its host.
f = Orvel.factory
v = f.createvec3d.(1, 2, 3)

def assert_raises(kind)
  begin
    yield
  rescue Exception => error
    assert error.is_a?(kind), "#{error.class}: #{error.message}"
    return
  end
  raise "nothing was raised"
end

# Objects that no factory made: they can't be had, or have nothing behind them.
class Mine < Orvel::Object
end
bare = []
[Orvel::Object, Mine].each do |kind|
  assert_raises(StandardError) { kind.new }
  begin
    bare << kind.allocate
  rescue NoMethodError
  end
  begin
    bare << Class.instance_method(:allocate).bind(kind).call
  rescue StandardError
  end
end
[:dup, :clone].each do |name|
  begin
    bare << Kernel.instance_method(name).bind(v).call
  rescue StandardError
  end
end
bare.each do |object|
  assert_equal "no object", object.inspect
  assert_equal "no object", object.to_s
  assert_equal false, object == v
  assert_equal false, v == object
  assert_equal true, object == object
  assert_raises(StandardError) { object.x }
  assert_raises(StandardError) { object.x = 3 }
  assert_raises(StandardError) { object.(1, 2, 3) }
  assert_raises(StandardError) { v.add(object) }
end
assert bare.size > 0, "dup gives an object without one behind it"

# A frozen object refuses to be written, and can be read.
v.freeze
assert_raises(FrozenError) { v.x = 3 }
assert_raises(FrozenError) { v.x(3) }
assert_raises(FrozenError) { v.(7, 8, 9) }
assert_shows "vector3d(1, 2, 3)", v
assert_equal 1, v.x
assert_shows "vector3d(2, 4, 6)", v.mul(2)

# Arguments of all kinds.
w = f.createvec3d
[[], {}, 1..2, :name, Object, proc {}, true, 1e400, "\0", "a" * 100000].each do |argument|
  begin
    w.add(argument)
  rescue StandardError
  end
  begin
    f.Create(argument)
  rescue StandardError
  end
  begin
    Orvel.create(argument)
  rescue StandardError
  end
end
1000.times { begin; w.add(*(1..50).to_a); rescue StandardError; end }

# Names that mean something else.
Orvel.send(:remove_const, :Error) if Orvel.respond_to?(:remove_const)
Orvel::Error = 5
Orvel::Object = nil
assert_raises(StandardError) { w.missing }
assert_raises(StandardError) { w.add(1) }
assert_shows "vector3d(0, 0, 0)", f.createvec3d
Object.class_eval { def method_missing(name, *rest); 7; end }
assert_shows "vector3d(0, 0, 0)", f.createvec3d
