# What the test scripts check with. A check that fails raises, and that ends the program.

def assert(condition, what = "the condition does not hold")
  raise what unless condition
end

def assert_equal(expected, actual)
  raise "expected #{expected.inspect}, got #{actual.inspect}" unless expected == actual
end

def assert_near(expected, actual, tolerance = 1e-12)
  near = (expected - actual).abs <= tolerance
  raise "expected about #{expected}, got #{actual}" unless near
end

# The object shows these values.
def assert_shows(text, object)
  assert_equal text, object.inspect
end

# The block raises Orvel::Error with exactly this message.
def assert_refused(message)
  begin
    yield
  rescue Orvel::Error => error
    assert_equal message, error.message
    return
  end
  raise "nothing was raised; expected: #{message}"
end

NOT_CONVERTIBLE = ": the arguments cannot be converted to the member's parameters"
NO_MEMBER = ": there is no such member"
