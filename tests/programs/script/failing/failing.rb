v = Orvel.factory.createvec3d
v.missing
