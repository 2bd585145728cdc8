`include "half"
package p; import q::*; typedef class d;
class c #(type T = int) extends b #(T, e) implements i, q::j; virtual f_if v; rand d x;
static function c get(); return c#(T)::me; endfunction endclass endpackage
