Orvel::Error = 5
def inner
  Orvel.factory.createvec3d.missing
end
def outer
  inner
end
outer
