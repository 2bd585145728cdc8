(* a = "*)" *) module m; "x\
"""y"z""" (*) `ifdef A