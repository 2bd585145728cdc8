module größe; /* ä */ s \uü  (a);
endmodule"open