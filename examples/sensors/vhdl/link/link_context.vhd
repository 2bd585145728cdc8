-- The common context, and the frames on top of it.
context link_context is
    library common;
    context common.common_context;
    library link;
    use link.link_pkg.all;
end context link_context;
