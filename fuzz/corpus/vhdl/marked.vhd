entity Zähler is end; -- €
vunit v (ZÄHLER(a)) { assert always x; }