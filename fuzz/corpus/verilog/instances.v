module m (a_if.mp x, b_if y); sub #(.A(1)) u [3:0] (.a(a)), v (b); udp #5 (o, a);
generate if (X) begin : g s u (); end else case (Y) 0, 1: t u (); default: ; endcase endgenerate
always @(*) if (a) b = c ? d : e; else begin f(a); end
bind top.a[0].b chk #(1) w (.*); endmodule
