class Odd < StandardError
  def message
    raise "again"
  end
  def inspect
    raise "and again"
  end
end
raise Odd
