config c; design lib.top x; default liblist a; instance top.u use l.d:config; cell e.f use g; endconfig
primitive p (o, a); table 0 (01) : ? : - ; endtable endprimitive
extern module e (input a); import "DPI-C" function int f(int a); checker k; endchecker
