-- The chain with each architecture of its average.
configuration filter_accumulating of filter_chain is
    for rtl
        for average : moving_average
            use entity work.moving_average(accumulating);
        end for;
    end for;
end configuration filter_accumulating;

configuration filter_summing of filter_chain is
    for rtl
        for average : moving_average
            use entity work.moving_average(summing);
        end for;
    end for;
end configuration filter_summing;
