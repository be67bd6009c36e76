Long listings, whole: their bytes as a digest, the same as the build before
the read path was made faster. The large plan takes every long path: more
than 2,048 schedules (counted, then sent as a second walk reads them), more
than 4,096 jobs (a second walk), job lookups through the schedule index, and
dependencies that name records over and over (the kept records).

  $ almplan synth --cpus 3 --scheds 700 --jobs 3 --deps big
  $ almq --plan big --raw scheds | md5sum
  e816c61798be6dae215ee3b7dbee40be  -
  $ almq --plan big --raw jobs | md5sum
  39cc62a347ba578d157d677c8a252234  -
  $ almq --plan big --raw deps | md5sum
  88200a3e3384e25b284de69961cd85a6  -
  $ almq --plan big --raw jobs @ S00006@ | md5sum
  0d81bd071b2d9d7513ce10d168b37b57  -
  $ almq --plan big --raw deps WS000002 @ J0000002 | md5sum
  d7adc9441824f3d0b43f8e9466fe8512  -
  $ almq --plan big --raw deps @ S000010@ | md5sum
  2c51ffe94d2a996bffe51e670144fa50  -
  $ almplan synth --v1 --cpus 2 --scheds 40 --jobs 25 --deps old
  $ almq --plan old --raw jobs | md5sum
  4e4f27c59ec7fa25aae2fdf9c47a894c  -
  $ almq --plan old --raw deps | md5sum
  a82e209924387ec2192e35a72838df1e  -
