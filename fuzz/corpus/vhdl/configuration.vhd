library l;
configuration c of e is
  for rtl
    for all : comp use entity l.f(a);
      for a for u : g use configuration l.d; end for; end for;
    end for;
  end for;
end;
