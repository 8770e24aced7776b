class Odd < StandardError
  def message
    42
  end
end
raise Odd
